#include "family_insight.h"

#include "canvas/tree_view.h"
#include "checks_panel.h"
#include "document/document.h"
#include "document/document_window.h"
#include "elements/shortened_text.h"
#include "finding_words.h"
#include "kinship/relatives.h"
#include "model/object_context.h"
#include "model/person.h"
#include "person_chooser.h"
#include "relationship_strip.h"

#include <QCoreApplication>
#include <QTimerEvent>

#include <algorithm>

namespace lineara {

namespace {

struct InsightTexts
{
    Q_DECLARE_TR_FUNCTIONS(FamilyInsight)
};

/// From a change to what is told anew: a whole visit to a field, or the work that a link leads to, is one change.
constexpr int quietMilliseconds = 300;

QString nameOf(const ObjectContext& family, RecordId id)
{
    const Person* const person = family.person(id);
    const QString name = person ? person->name().value_or(QString()) : QString();
    return name.isEmpty() ? QCoreApplication::translate("PersonChooser", "Without a name") : toldName(name);
}

CheckedLines linesOf(std::vector<kinship::FoundPerson> found, const std::shared_ptr<const KinshipRecords>& records,
                     const ObjectContext& family)
{
    const std::size_t count = found.size();
    const auto all = std::make_shared<const std::vector<kinship::FoundPerson>>(std::move(found));
    const auto line = [all, records, &family](std::size_t at) {
        const kinship::FoundPerson& one = (*all)[at];
        const RecordId person = records->idOf(one.person);
        const QString other = one.other ? nameOf(family, records->idOf(*one.other)) : QString();
        return CheckedPerson{person, nameOf(family, person), findingWords(one, records->checked(), other)};
    };
    const auto matter = [all, records](std::size_t at) {
        const kinship::FoundPerson& one = (*all)[at];
        const auto other = one.other ? std::optional(records->idOf(*one.other)) : std::nullopt;
        return CheckedMatter{records->idOf(one.person), one.finding, other};
    };
    return {count, line, matter};
}

} // namespace

FamilyInsight::FamilyInsight(Document& document)
    : document_(document), menu_(*document.window().familyMenu(),
                                 {[this] { chooseOther(); }, [this] { highlightRelatives(Relatives::Ancestors); },
                                  [this] { highlightRelatives(Relatives::Descendants); }, [this] { showAll(); },
                                  [this](bool visible) { showChecks(visible); }}),
      strip_(new RelationshipStrip({[this] { swap(); }, [this] { showAll(); }})),
      checks_(new ChecksPanel([this](RecordId person) { leadTo(person); }))
{
    document.window().addStrip(strip_);
    document.window().addDockWidget(Qt::BottomDockWidgetArea, checks_);
    connect(checks_, &QDockWidget::visibilityChanged, this,
            [this] { menu_.showWhetherChecking(!checks_->isHidden()); });
    changes_ = document.context().observe([this](const Change& change) { follow(change); });
}

FamilyInsight::~FamilyInsight() = default;

void FamilyInsight::canvasShown()
{
    TreeView& canvas = *document_.treeView();
    connect(&canvas, &TreeView::highlightDismissed, this, [this] { showAll(); });
    connect(&canvas, &TreeView::comparisonRequested, this, [this](RecordId person) { compareWith(person); });
}

void FamilyInsight::showCommands()
{
    const TreeView* const canvas = document_.treeView();
    menu_.show({canvas != nullptr, document_.selectionPerson() != nullptr, canvas && canvas->isHighlighting()});
}

void FamilyInsight::chooseOther()
{
    const Person* const selected = document_.selectionPerson();
    if (!document_.treeView() || !selected)
        return;
    const RecordId id = selected->recordId();
    const auto isAllowed = [id](const Person& other) { return other.recordId() != id; };
    const auto chosen = [this, id](const Person& other) { setHighlight(OfTwo{id, other.recordId()}); };
    auto* const chooser =
        new PersonChooser(document_.window(), InsightTexts::tr("Relationship to"), document_.pool(), isAllowed, chosen);
    chooser->open();
}

/// A second click on the same person takes the comparison back. Where nobody is selected it is a click like any other.
void FamilyInsight::compareWith(RecordId other)
{
    const Person* const selected = document_.selectionPerson();
    if (!selected) {
        if (Person* const person = document_.context().person(other))
            document_.selectPerson(*person);
        return;
    }
    const auto* const shown = std::get_if<OfTwo>(&highlight_);
    const bool isShown = shown && shown->first == selected->recordId() && shown->second == other;
    if (isShown || selected->recordId() == other)
        showAll();
    else
        setHighlight(OfTwo{selected->recordId(), other});
}

void FamilyInsight::swap()
{
    if (const auto* const two = std::get_if<OfTwo>(&highlight_))
        setHighlight(OfTwo{two->second, two->first});
}

void FamilyInsight::highlightRelatives(Relatives relatives)
{
    if (const Person* const selected = document_.selectionPerson())
        setHighlight(OfPerson{selected->recordId(), relatives});
}

void FamilyInsight::setHighlight(const Highlight& highlight)
{
    if (!document_.treeView())
        return;
    highlight_ = highlight;
    showHighlight();
}

/// Persons who have gone meanwhile leave nothing to show.
void FamilyInsight::showHighlight()
{
    std::visit([this](const auto& shown) { bringOut(shown); }, Highlight(highlight_));
    strip_->setHidden(!std::holds_alternative<OfTwo>(highlight_));
    showCommands();
}

void FamilyInsight::bringOut(std::monostate)
{
    document_.treeView()->clearHighlight();
}

void FamilyInsight::bringOut(const OfPerson& of)
{
    const auto person = records().indexOf(of.person);
    if (!person) {
        showAll();
        return;
    }
    const auto& graph = records().graph();
    auto persons = of.relatives == Relatives::Ancestors ? kinship::ancestorsOf(graph, *person)
                                                        : kinship::descendantsOf(graph, *person);
    persons.push_back(*person);
    document_.treeView()->setHighlight(records().idsOf(persons));
}

void FamilyInsight::bringOut(const OfTwo& of)
{
    const auto first = records().indexOf(of.first);
    const auto second = records().indexOf(of.second);
    if (!first || !second) {
        showAll();
        return;
    }
    const kinship::Relation relationship = kinship::relationshipOf(records().graph(), *first, *second);
    auto persons = relationship.path;
    if (relationship.kinship == kinship::Kinship::Blood)
        persons.insert(persons.end(), relationship.blood->ancestors.begin(), relationship.blood->ancestors.end());
    // Two who are not connected have no path.
    persons.insert(persons.end(), {*first, *second});
    document_.treeView()->setHighlight(records().idsOf(persons));
    const auto name = [this](kinship::PersonIndex person) {
        return nameOf(document_.context(), records().idOf(person));
    };
    const ToldFamily told{records().graph(), records().sexes(), name};
    strip_->tell(relationshipText(relationship, told, *first, *second));
}

void FamilyInsight::showChecks(bool visible)
{
    checks_->setVisible(visible);
    if (!visible) {
        checking_.reset();
        return;
    }
    checks_->tellToWait();
    check();
}

/// On a thread of its own, for in a family of which hardly a date is right they take a while. Checks that are under way
/// are given up.
void FamilyInsight::check()
{
    records();
    const auto found = std::make_shared<std::optional<std::vector<kinship::FoundPerson>>>();
    const auto tell = [this, records = records_, found] {
        if (*found)
            checks_->tell(linesOf(std::move(**found), records, document_.context()));
    };
    WorkBlock block;
    block.compute([records = records_, found](const std::stop_token& stop) {
        *found = kinship::findings(records->checked(), stop);
    });
    block.onMain(tell);
    checking_.emplace();
    checking_->enqueue(std::move(block));
}

void FamilyInsight::leadTo(RecordId id)
{
    Person* const person = document_.context().person(id);
    if (!person || !document_.treeView())
        return;
    document_.selectPerson(*person);
    document_.treeView()->reveal(*person);
}

void FamilyInsight::follow(const Change& change)
{
    const auto* const attributes = std::get_if<AttributesChanged>(&change);
    const bool isRenamed = attributes && (attributes->attributes & PersonAttribute::Name);
    if (KinshipRecords::concerns(change))
        records_.reset();
    else if (!isRenamed)
        return;
    if (!checks_->isHidden() || !std::holds_alternative<std::monostate>(highlight_))
        update_.start(quietMilliseconds, this);
}

void FamilyInsight::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != update_.timerId())
        return;
    update_.stop();
    if (!document_.treeView())
        return;
    if (!std::holds_alternative<std::monostate>(highlight_))
        showHighlight();
    if (!checks_->isHidden())
        check();
}

const KinshipRecords& FamilyInsight::records()
{
    if (!records_)
        records_ = std::make_shared<const KinshipRecords>(document_.pool());
    return *records_;
}

} // namespace lineara
