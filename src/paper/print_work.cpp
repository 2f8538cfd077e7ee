#include "print_work.h"

#include "print_output.h"

#include <utility>

namespace lineara {

PrintWork::PrintWork(std::unique_ptr<PaperPicture> picture, std::unique_ptr<PrintOutput> output)
    : picture_(std::move(picture)), output_(std::move(output)), drawing_(*picture_, *output_)
{}

PrintWork::~PrintWork() = default;

Outcome<std::unique_ptr<PaperWork>> PrintWork::begin(std::unique_ptr<PaperPicture> picture, const PosterSheets& sheets,
                                                     std::shared_ptr<QPrinter> printer)
{
    auto plan = planOf(*picture, sheets);
    if (plan.failed())
        return plan.failure();
    auto output = std::make_unique<PrintOutput>(*picture, std::move(plan.value()), sheets.marks, std::move(printer));
    return std::unique_ptr<PaperWork>(new PrintWork(std::move(picture), std::move(output)));
}

Outcome<Done> PrintWork::finish()
{
    const auto printed = output_->finish();
    if (printed.failed())
        return printed.failure();
    return Done{};
}

} // namespace lineara
