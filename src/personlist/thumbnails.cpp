#include "thumbnails.h"

#include "model/object_context.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace lineara {

namespace {

constexpr int mostThumbnails = 1000;

/// The middle of the picture.
QPixmap squareOf(const QImage& picture, double devicePixelRatio)
{
    const int shorter = std::min(picture.width(), picture.height());
    const int pixels = qRound(thumbnailSide * devicePixelRatio);
    const QImage square =
        picture.copy((picture.width() - shorter) / 2, (picture.height() - shorter) / 2, shorter, shorter);
    QPixmap scaled = QPixmap::fromImage(square.scaled(pixels, pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    scaled.setDevicePixelRatio(devicePixelRatio);
    return scaled;
}

} // namespace

Thumbnails::Thumbnails(const ObjectContext& context, std::function<void()> made)
    : context_(context), made_(std::move(made)), thumbnails_(mostThumbnails)
{
    next_.setSingleShot(true);
    QObject::connect(&next_, &QTimer::timeout, &next_, [this] { makeNext(); });
}

std::optional<QPixmap> Thumbnails::of(const Person& person, double devicePixelRatio)
{
    const RecordId id = person.recordId();
    if (!person.pic())
        return QPixmap();
    if (const QPixmap* const made = thumbnails_.object(id.number)) {
        if (made->devicePixelRatio() == devicePixelRatio)
            return *made;
    }
    if (std::ranges::find(wanted_, id, &Wanted::person) == wanted_.end())
        wanted_.push_back({id, devicePixelRatio});
    next_.start();
    return std::nullopt;
}

void Thumbnails::forget(RecordId person)
{
    thumbnails_.remove(person.number);
}

/// Who was asked for last is the most likely still to be in sight.
void Thumbnails::makeNext()
{
    if (wanted_.empty())
        return;
    const Wanted wanted = wanted_.back();
    wanted_.pop_back();
    if (!wanted_.empty())
        next_.start();
    const Person* const person = context_.person(wanted.person);
    if (!person || !person->image())
        return;
    const QImage& pixels = person->image()->pixels();
    auto made = std::make_unique<QPixmap>();
    if (!pixels.isNull())
        *made = squareOf(pixels, wanted.devicePixelRatio);
    made->setDevicePixelRatio(wanted.devicePixelRatio);
    thumbnails_.insert(wanted.person.number, made.release());
    made_();
}

} // namespace lineara
