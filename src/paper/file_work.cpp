#include "file_work.h"

#include <utility>

namespace lineara {

FileWork::FileWork(std::unique_ptr<PaperPicture> picture, QString path)
    : picture_(std::move(picture)), path_(std::move(path))
{}

FileWork::~FileWork() = default;

Outcome<std::unique_ptr<PaperWork>> FileWork::begin(std::unique_ptr<PaperPicture> picture, const PictureWish& wish,
                                                    const QString& path)
{
    std::unique_ptr<FileWork> work(new FileWork(std::move(picture), path));
    auto drawing = PictureExport::begin(*work->picture_, wish);
    if (drawing.failed())
        return drawing.failure();
    work->drawing_ = std::move(drawing.value());
    return std::unique_ptr<PaperWork>(std::move(work));
}

Outcome<Done> FileWork::finish()
{
    const auto content = drawing_->bytes();
    if (content.failed())
        return content.failure();
    return savePictureFile(path_, content.value());
}

} // namespace lineara
