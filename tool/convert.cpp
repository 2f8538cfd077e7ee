#include "convert.h"

#include "genealogy_output.h"
#include "picture_file.h"
#include "store/family_file.h"

namespace lineara::tool {

namespace {

Outcome<Done> write(OpenedFamily& family, const ConvertCommand& command)
{
    if (isFamilyFileName(command.output))
        return saveFamilyFile(*family.context, command.output);
    if (isGenealogyName(command.output))
        return saveGenealogy(*family.context, command.output, {command.asGedcom7, command.tellNotes});
    return savePicture(*family.pool, command.output);
}

} // namespace

ExitCode convert(const ConvertCommand& command)
{
    auto opened = openTold(command.input, command.tellNotes);
    if (opened.failed()) {
        tell(opened.failure().message);
        return ExitCode::InputUnreadable;
    }
    OpenedFamily& family = opened.value();
    const auto written = write(family, command);
    if (written.failed()) {
        tell(written.failure().message);
        return ExitCode::OutputUnwritable;
    }
    return ExitCode::Done;
}

} // namespace lineara::tool
