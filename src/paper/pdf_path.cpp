#include "pdf_path.h"

#include "file_text.h"

#include <initializer_list>

namespace lineara {

namespace {

class PathOps
{
public:
    explicit PathOps(int decimals) : decimals_(decimals) {}

    void move(QPointF point) { op({point}, "m\n"); }
    void line(QPointF point) { op({point}, "l\n"); }
    void curve(QPointF first, QPointF second, QPointF end) { op({first, second, end}, "c\n"); }
    void close() { ops += "h\n"; }

    QByteArray ops;

private:
    void op(std::initializer_list<QPointF> points, const char* name)
    {
        for (const QPointF& point : points)
            appendPoint(ops, point, decimals_);
        ops += name;
    }

    int decimals_;
};

} // namespace

void appendPoint(QByteArray& ops, QPointF point, int decimals)
{
    appendNumber(ops, point.x(), decimals);
    ops += ' ';
    appendNumber(ops, point.y(), decimals);
    ops += ' ';
}

QByteArray pathOps(const QPainterPath& path, int decimals)
{
    PathOps ops(decimals);
    visitPath(path, ops);
    return ops.ops;
}

} // namespace lineara
