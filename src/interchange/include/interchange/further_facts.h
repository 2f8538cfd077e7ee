#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

namespace lineara {

/// A line of an imported record that a person's own fields do not hold.
struct FurtherFact
{
    QString
        label; ///< "Occupation"; below a line that a field holds, with that: "Birth: Place". Unknown tags as they are
    QString value; ///< with its continuations; what a pointer points at stands between @ signs
    int depth = 0; ///< 0, or one more than the fact that it belongs to
};

/// What a kept record holds beyond the fields that were made of it, in the order of its lines. A date of which a field
/// holds only a part is there, too. Notes are in the family, and so are the links to families, unless there are several
/// as a child: parents beyond two were refused then.
std::vector<FurtherFact> furtherFacts(const QByteArray& recordText);

} // namespace lineara
