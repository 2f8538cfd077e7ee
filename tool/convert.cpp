#include "convert.h"

#include "picture_file.h"
#include "store/family_file.h"

namespace lineara::tool {

ExitCode convert(const ConvertCommand& command)
{
    auto opened = openTold(command.input, command.tellNotes);
    if (opened.failed()) {
        tell(opened.failure().message);
        return ExitCode::InputUnreadable;
    }
    OpenedFamily& family = opened.value();
    const auto written = isFamilyFileName(command.output) ? saveFamilyFile(*family.context, command.output)
                                                          : savePicture(*family.pool, command.output);
    if (written.failed()) {
        tell(written.failure().message);
        return ExitCode::OutputUnwritable;
    }
    return ExitCode::Done;
}

} // namespace lineara::tool
