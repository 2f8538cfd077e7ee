#pragma once

#include "bring_up_to_date.h"
#include "migration_stage.h"

#include <optional>
#include <string>

namespace lineara {

inline QByteArray sample(const QString& name)
{
    return bytesOf(QStringLiteral(LINEARA_TEST_DATA) + u"/versions/"_qs + name + u".lineara"_qs);
}

/// An environment variable while it lives; unset without a value.
class Variable
{
public:
    Variable(const char* name, const std::optional<QString>& value) : name_(name), before_(qgetenv(name))
    {
        if (value)
            qputenv(name, value->toUtf8());
        else
            qunsetenv(name);
    }
    ~Variable() { before_.isNull() ? qunsetenv(name_) : qputenv(name_, before_); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    const char* name_;
    QByteArray before_;
};

/// A home of its own, with a folder for originals in it, and an old file elsewhere.
class UpToDate : public testing::Test
{
protected:
    UpToDate()
        : home_(files_.path(u"home"_qs)), homeVariable_("HOME", home_), data_("XDG_DATA_HOME", home_ + u"/data"_qs)
    {
        QDir().mkpath(home_);
    }

    QString put(const QString& name, const QByteArray& bytes) { return files_.write(name, bytes); }
    MigrationPlaces places() const { return {home_, home_ + u"/originals"_qs, quickCalls()}; }
    QStringList originals() const { return QDir(home_ + u"/originals"_qs).entryList(QDir::Files | QDir::Hidden); }
    QStringList filesAtHome() const { return QDir(home_).entryList(QDir::Files | QDir::Hidden); }

    std::string problem(const QString& path, const MigrationPlaces& places) const
    {
        const auto file = bringUpToDate(path, places);
        return file.failed() ? file.failure().message.toStdString() : std::string();
    }

    TestFiles files_;
    QString home_;
    Variable homeVariable_;
    Variable data_;
    LogCapture quiet_;
};

} // namespace lineara
