#pragma once

#include <QDirIterator>
#include <QFile>
#include <QStringList>

#include <gtest/gtest.h>

#include <unistd.h>

namespace lineara {

/// For as long as it lives the process is not the superuser, whom no permission stops, but somebody to whom the
/// folders, with all that is in them, belong.
class OrdinaryUser
{
public:
    explicit OrdinaryUser(const QStringList& folders) : before_(::geteuid())
    {
        if (before_ != 0)
            return;
        for (const QString& folder : folders) {
            handOver(folder);
            for (QDirIterator all(folder, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                                  QDirIterator::Subdirectories);
                 all.hasNext();)
                handOver(all.next());
        }
        EXPECT_EQ(::seteuid(nobody), 0);
    }
    ~OrdinaryUser() { EXPECT_EQ(::seteuid(before_), 0); }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
    static constexpr uid_t nobody = 65534;

    static void handOver(const QString& path)
    {
        EXPECT_EQ(::chown(QFile::encodeName(path).constData(), nobody, nobody), 0);
    }

    uid_t before_;
};

} // namespace lineara
