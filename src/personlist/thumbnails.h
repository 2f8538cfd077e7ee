#pragma once

#include "model/record.h"

#include <QCache>
#include <QPixmap>
#include <QTimer>

#include <functional>
#include <optional>
#include <vector>

namespace lineara {

class ObjectContext;
class Person;

/// Small square pictures of persons. They are made one by one between events, so that nothing waits for the pictures of
/// rows that scroll by.
class Thumbnails
{
public:
    /// `made` is called when a thumbnail that was asked for can be had.
    Thumbnails(const ObjectContext& context, std::function<void()> made);

    /// No value while there is no thumbnail: not made yet, or no picture to make it of.
    std::optional<QPixmap> of(const Person& person, int side, double devicePixelRatio);

    /// The person's picture has changed.
    void forget(RecordId person);

private:
    struct Wanted
    {
        RecordId person;
        int side;
        double devicePixelRatio;
    };

    void makeNext();

    const ObjectContext& context_;
    std::function<void()> made_;
    QCache<std::uint64_t, QPixmap> thumbnails_;
    std::vector<Wanted> wanted_;
    QTimer next_;
};

/// The middle square of the picture, scaled to the side in device pixels.
QPixmap squareOf(const QImage& picture, int side, double devicePixelRatio);

} // namespace lineara
