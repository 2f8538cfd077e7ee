#include "family_tasks.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <utility>

namespace lineara {

namespace {

struct FamilyTaskTexts
{
    Q_DECLARE_TR_FUNCTIONS(FamilyTasks)
};

/// The user knows the family, and not where the program keeps its copy.
Failure unreadable(const LeftWork& work, const RecoveryCopy& copy, const Failure& failure)
{
    const QString why =
        failure.reason.isEmpty() ? QString(failure.message).replace(copy.familyPath(), work.name) : failure.reason;
    return Failure{
        FamilyTaskTexts::tr("The unsaved changes of “%1” can't be opened. The copy that holds them stays until it is "
                            "discarded in the start window. What is wrong with it: %2")
            .arg(work.name, why)};
}

} // namespace

Opening::Task openingTask(const QString& path, std::shared_ptr<FileLock> lock)
{
    return {path, QFileInfo(path).fileName(), [path, lock = std::move(lock)](const Progress& progress) {
                auto opened = openFamily(path, progress);
                if (opened && opened.value().origin.isOwn)
                    opened.value().origin.lock = lock;
                return opened;
            }};
}

Opening::Task recoveryTask(const LeftWork& work, std::shared_ptr<RecoveryCopy> copy, std::shared_ptr<FileLock> lock)
{
    const bool isCopy = work.isCopy || (work.isOwn && !lock);
    // The file of a copy can be opened meanwhile.
    return {isCopy ? QString() : work.path, work.name,
            [work, isCopy, copy = std::move(copy),
             lock = std::move(lock)](const Progress& progress) -> Outcome<OpenedFamily> {
                auto opened = openFamily(copy->familyPath(), progress);
                if (opened.failed())
                    return unreadable(work, *copy, opened.failure());
                completeFamily(opened.value());
                opened.value().origin = {work.path, lock != nullptr, work.mark, lock, isCopy};
                opened.value().unsaved = copy;
                return opened;
            }};
}

} // namespace lineara
