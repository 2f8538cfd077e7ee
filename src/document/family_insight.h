#pragma once

#include "family_menu.h"
#include "kinship/relationship.h"
#include "kinship_records.h"
#include "platform/observer_list.h"
#include "platform/serial_queue.h"

#include <QBasicTimer>
#include <QObject>

#include <memory>
#include <optional>
#include <variant>

namespace lineara {

class ChecksPanel;
class Document;
class RelationshipStrip;

/// What a document tells about its family without changing it: the relationship of two persons, whose ancestors or
/// descendants somebody's are, and dates that can't be true. What is shown follows the records. Main thread only; goes
/// before the document's window.
class FamilyInsight : public QObject
{
public:
    explicit FamilyInsight(Document& document);
    ~FamilyInsight() override;

    /// To be called once the document has its canvas.
    void canvasShown();
    /// To be called when the selection has changed.
    void showCommands();

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    enum class Relatives
    {
        Ancestors,
        Descendants
    };

    /// Who is brought out on the canvas, and why.
    struct OfPerson
    {
        RecordId person;
        Relatives relatives;
    };
    struct OfTwo
    {
        RecordId first;
        RecordId second;
    };
    using Highlight = std::variant<std::monostate, OfPerson, OfTwo>;

    void chooseOther();
    void compareWith(RecordId other);
    void swap();
    void highlightRelatives(Relatives relatives);
    void setHighlight(const Highlight& highlight);
    void showAll() { setHighlight({}); }

    void showHighlight();
    void bringOut(std::monostate);
    void bringOut(const OfPerson& of);
    void bringOut(const OfTwo& of);

    void showChecks(bool visible);
    void check();
    void leadTo(RecordId id);

    void follow(const Change& change);
    const KinshipRecords& records();

    Document& document_;
    FamilyMenu menu_;
    RelationshipStrip* strip_; // the window's, like the panel
    ChecksPanel* checks_;
    Highlight highlight_;
    /// As of the last question, and none once they have changed. The list of checks may still look at the older ones.
    std::shared_ptr<const KinshipRecords> records_;
    Subscription changes_;
    std::optional<SerialQueue> checking_;
    QBasicTimer update_; // runs from a change to the moment when what is shown follows it
};

} // namespace lineara
