// Roles that come after another program: what it left, and what is still held.

#include "document/family_opening.h"
#include "family_state.h"
#include "reports.h"
#include "roles.h"
#include "store/family_file.h"

#include <QDir>

namespace lineara::chaos {

namespace {

void waitForTheEnd()
{
    char any = 0;
    while (::read(STDIN_FILENO, &any, 1) > 0) {
    }
}

void lookAt(const QFileInfo& file)
{
    const auto name = file.fileName().toUtf8();
    report("lock " + name + (lockFamilyFile(file.filePath()) ? " free" : " taken"));
    const auto bytes = bytesOf(file.filePath());
    const auto family = readFamilyFile(file.filePath());
    if (family.failed())
        return report("broken " + name);
    report("file " + name + ' ' + digestOf(bytes) + ' ' + stateOf(*family.value().context) + ' ' +
           QByteArray::number(family.value().repairs.size()));
    static_cast<void>(saveFamilyFile(*family.value().context, file.filePath()));
}

void lookAt(const LeftWork& work)
{
    const auto copy = RecoveryCopy::adopt(work.id);
    const auto family = copy ? openFamily(copy->familyPath()) : Outcome<OpenedFamily>(Failure{{}});
    if (family.failed())
        return report("left broken");
    const bool isAsLeft = work.mark == FileMark::of(work.path);
    report("left " + stateOf(*family.value().context) + ' ' + QByteArray::number(family.value().repairs.size()) +
           (isAsLeft ? " same" : " changed"));
}

} // namespace

int look(const QStringList& words)
{
    // Before anything is saved here.
    for (const auto& work : RecoveryCopy::left())
        lookAt(work);
    for (const auto& file : QDir(words.value(0)).entryInfoList({QStringLiteral("*.lineara")}, QDir::Files))
        lookAt(file);
    return 0;
}

int migrate(const QStringList& words)
{
    const auto path = words.value(0);
    const auto lock = lockFamilyFile(path);
    if (!lock)
        report("locked");
    report("opening");
    const auto opened = openFamily(path);
    report(opened ? "opened " + stateOf(*opened.value().context) : "refused");
    return 0;
}

int hold(const QStringList& words)
{
    const auto lock = lockFamilyFile(words.value(0));
    report(lock ? "held" : "refused");
    waitForTheEnd();
    return 0;
}

int adopt(const QStringList&)
{
    std::vector<std::unique_ptr<RecoveryCopy>> mine;
    for (const auto& work : RecoveryCopy::left()) {
        if (auto copy = RecoveryCopy::adopt(work.id)) {
            report("adopted " + work.id.toUtf8());
            mine.push_back(std::move(copy));
        }
    }
    report("done");
    waitForTheEnd();
    return 0;
}

} // namespace lineara::chaos
