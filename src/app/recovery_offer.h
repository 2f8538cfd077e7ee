#pragma once

#include <QDateTime>
#include <QString>

namespace lineara {

/// Work that was left unsaved by a program that ended too early, and can be had back.
struct RecoveryOffer
{
    QString name;      ///< of the family, as its window's title showed it
    QString folder;    ///< where its file lies; empty if it never had one
    QDateTime changed; ///< when it was changed last
    QString id;        ///< tells it from all others; means something to its keeper only
};

} // namespace lineara
