#pragma once

#include <QPixmap>
#include <QRect>
#include <QString>

#include <vector>

namespace lineara {

/// Pictures of the screen, one after the other, as one picture with a line of text below each.
class Strip
{
public:
    /// Takes a picture of a part of the screen as it is now, with the pointer.
    void add(QRect part, const QString& text);

    /// False if the file can't be written.
    bool save(const QString& path) const;

private:
    struct Shot
    {
        QPixmap picture;
        QString text;
    };
    std::vector<Shot> shots_;
};

} // namespace lineara
