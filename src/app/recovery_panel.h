#pragma once

#include "recovery_offer.h"

#include <QFrame>
#include <QList>

#include <functional>

class QVBoxLayout;

namespace lineara {

/// Offers work that was left unsaved: each family by name, place and time, to be opened or, after a question,
/// discarded. Hidden while there is nothing to offer.
class RecoveryPanel : public QFrame
{
    Q_OBJECT

public:
    using Command = std::function<void(const QString& id)>;

    RecoveryPanel(Command open, Command discard);

    void setOffers(const QList<RecoveryOffer>& offers);
    int offerCount() const { return static_cast<int>(offers_.size()); }

private:
    QWidget* makeRow(const RecoveryOffer& offer);
    void askToDiscard(const RecoveryOffer& offer);
    void drop(const QString& id);

    Command open_;
    Command discard_;
    QList<RecoveryOffer> offers_;
    QVBoxLayout* layout_;
};

} // namespace lineara
