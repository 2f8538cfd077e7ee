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

/// Side of the thumbnails in points.
inline constexpr int thumbnailSide = 66;

/// Small square pictures of persons. They are made one by one between events, so that nothing waits for the pictures of
/// rows that scroll by.
class Thumbnails
{
public:
    /// `made` is called when a thumbnail that was asked for can be had.
    Thumbnails(const ObjectContext& context, std::function<void()> made);

    /// No value while it is still to be made; null if there is no picture, or none that can be shown.
    std::optional<QPixmap> of(const Person& person, double devicePixelRatio);

    /// The person's picture has changed.
    void forget(RecordId person);

private:
    struct Wanted
    {
        RecordId person;
        double devicePixelRatio;
    };

    void makeNext();

    const ObjectContext& context_;
    std::function<void()> made_;
    QCache<std::uint64_t, QPixmap> thumbnails_;
    std::vector<Wanted> wanted_;
    QTimer next_;
};

} // namespace lineara
