#pragma once

#include "document/family_origin.h"

#include "platform/outcome.h"

#include <QDateTime>
#include <QString>

#include <memory>
#include <optional>
#include <vector>

namespace lineara {

class FamilyContent;

/// Unsaved work on a family that is kept in the application's folder.
struct LeftWork
{
    QString id;                   ///< names it among all that is kept
    QString name;                 ///< what the window called the family
    QString path;                 ///< the file that it belongs to; empty without one
    bool isOwn = false;           ///< whether that file is written to
    bool isCopy = false;          ///< whether it is a copy of that file, which goes on without it
    std::optional<FileMark> mark; ///< that file as it was when the work on it began
    QDateTime changed;            ///< when the copy was written
    bool isDamaged = false;       ///< whether nothing but the copy itself is known
};

/// A copy of one document's unsaved work, for the case that the program ends before it is saved. It belongs to one
/// document at a time: what a document of a running program keeps is not left.
///
/// Made and destroyed on the main thread; the others may be called on any one thread at a time.
class RecoveryCopy
{
public:
    RecoveryCopy();
    ~RecoveryCopy();
    RecoveryCopy(const RecoveryCopy&) = delete;
    RecoveryCopy& operator=(const RecoveryCopy&) = delete;

    /// What was left by documents that are gone, the newest first.
    static std::vector<LeftWork> left();
    /// Takes over what was left. Nullptr if it is gone, or somebody else took it.
    static std::unique_ptr<RecoveryCopy> adopt(const QString& id);
    static void discard(const QString& id);

    const QString& id() const { return id_; }
    /// The copied family, a family file.
    QString familyPath() const;
    /// What is known of it; no value if nothing was written yet.
    std::optional<LeftWork> about() const;

    /// The copy that was there before stays if this fails.
    Outcome<Done> write(const FamilyContent& content, const LeftWork& about);
    void remove();

private:
    explicit RecoveryCopy(QString id);

    QString id_;
    std::unique_ptr<FileLock> lock_;
};

} // namespace lineara
