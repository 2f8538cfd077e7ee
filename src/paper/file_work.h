#pragma once

#include "paper/paper_picture.h"
#include "paper/picture_export.h"
#include "paper_work.h"

#include <QString>

namespace lineara {

/// Draws a picture and puts it in the place of a file.
class FileWork : public PaperWork
{
public:
    static Outcome<std::unique_ptr<PaperWork>> begin(std::unique_ptr<PaperPicture> picture, const PictureWish& wish,
                                                     const QString& path);
    ~FileWork() override;

    bool step() override { return drawing_->step(); }
    double part() const override { return drawing_->part(); }
    Outcome<Done> finish() override;

private:
    FileWork(std::unique_ptr<PaperPicture> picture, QString path);

    std::unique_ptr<PaperPicture> picture_;
    QString path_;
    std::unique_ptr<PictureExport> drawing_;
};

} // namespace lineara
