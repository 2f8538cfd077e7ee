#pragma once

#include <QByteArray>
#include <QPainterPath>

#include <cstdint>
#include <string_view>

namespace lineara {

/// Appends a number with at most that many decimals, as short as it gets. Always with a point, whatever the language.
void appendNumber(QByteArray& text, double number, int decimals = 2);

/// Names a sequence of numbers or bytes by 128 bits, so that equal ones are found without being kept.
struct Fingerprint
{
    std::uint64_t first = 0xcbf29ce484222325;
    std::uint64_t second = 0x9e3779b97f4a7c15;

    void add(std::uint64_t number);
    void add(std::string_view bytes);
    friend bool operator==(Fingerprint, Fingerprint) = default;
};

struct HashOfFingerprint
{
    std::size_t operator()(Fingerprint fingerprint) const { return fingerprint.first; }
};

/// Calls for each element of a path: move(point), line(point), curve(control, control, end), and close() where a part
/// of it ends where it began.
template<class Visitor>
void visitPath(const QPainterPath& path, Visitor&& visitor)
{
    QPointF begin;
    QPointF last;
    bool hasBegun = false;
    const auto endPart = [&] {
        if (hasBegun && begin == last)
            visitor.close();
    };
    for (int at = 0; at < path.elementCount(); ++at) {
        const QPainterPath::Element& element = path.elementAt(at);
        if (element.isMoveTo()) {
            endPart();
            hasBegun = false;
            begin = element;
            visitor.move(element);
        } else if (element.isLineTo()) {
            visitor.line(element);
            hasBegun = true;
        } else {
            visitor.curve(element, path.elementAt(at + 1), path.elementAt(at + 2));
            at += 2;
            hasBegun = true;
        }
        last = path.elementAt(at);
    }
    endPart();
}

} // namespace lineara
