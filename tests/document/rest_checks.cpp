#include "rest_checks.h"

#include "canvas/placement.h"

#include <algorithm>
#include <set>
#include <utility>

namespace lineara {

void RestChecks::checkAll()
{
    checkNodes();
    checkRows();
    checkLinks();
    checkPlaces();
    checkSelection();
    checkText();
    checkGenerations();
}

void RestChecks::checkNodes() const
{
    const auto& persons = edited_.pool().persons();
    EXPECT_EQ(edited_.context().allPersons().size(), persons.size());
    EXPECT_EQ(edited_.canvas().personLayer().nodes().size(), persons.size());
    for (const Person* const person : persons)
        EXPECT_TRUE(edited_.canvas().scene().shows(*person));
    EXPECT_EQ(edited_.document->window().isOnboardingVisible(), persons.empty());
}

void RestChecks::checkRows() const
{
    if (!edited_.search().text().isEmpty())
        return;
    std::multiset<QString> named;
    for (const Person* const person : edited_.pool().persons()) {
        if (const auto& name = person->name(); name && !name->trimmed().isEmpty())
            named.insert(*name);
    }
    const QStringList rows = edited_.names();
    EXPECT_EQ(static_cast<std::size_t>(rows.size()), edited_.pool().persons().size());
    const std::multiset<QString> shown(rows.begin(), rows.end());
    EXPECT_TRUE(std::ranges::includes(shown, named));
}

void RestChecks::checkLinks() const
{
    std::multiset<std::pair<const Person*, const Person*>> offspring;
    std::multiset<std::set<const Person*>> partners;
    for (const auto& shape : edited_.canvas().branchLayer().layers()) {
        if (shape->isPartnerLink())
            partners.insert({shape->source(), shape->target()});
        else
            offspring.insert({shape->source(), shape->target()});
    }
    std::multiset<std::pair<const Person*, const Person*>> children;
    std::multiset<std::set<const Person*>> couples;
    for (Person* const person : edited_.pool().persons()) {
        for (const Person* const child : person->children()) {
            EXPECT_TRUE(child->parents().contains(person));
            children.insert({person, child});
        }
        for (const Person* const partner : person->partners()) {
            EXPECT_TRUE(partner->partners().contains(person));
            if (person < partner)
                couples.insert({person, partner});
        }
    }
    EXPECT_EQ(offspring, children);
    EXPECT_EQ(partners, couples);
}

/// Who has a row stands in it, nobody left of the canvas, and in the rows above the lowest everybody apart.
void RestChecks::checkPlaces() const
{
    for (const Person* const person : edited_.pool().persons()) {
        EXPECT_GE(person->x().value_or(0), 0) << person->recordId().number;
        if (person->generation()) {
            EXPECT_EQ(person->leafView()->yConstraint()->constant, rowConstant(person->generation()));
        }
    }
    const auto& rows = edited_.pool().generations();
    for (const Person* const person : edited_.pool().persons()) {
        if (person->generation()) {
            const auto row = static_cast<std::size_t>(*person->generation());
            EXPECT_TRUE(row < rows.size() && std::ranges::count(rows[row], person->recordId()) == 1) << "row " << row;
        }
    }
    for (std::size_t row = 1; row < rows.size(); ++row) {
        std::vector<std::pair<int, int>> spans;
        for (const RecordId id : rows[row]) {
            if (const Person* const person = edited_.context().person(id))
                spans.emplace_back(*person->x(), *person->x() + person->leafView()->width());
        }
        std::ranges::sort(spans);
        for (std::size_t at = 1; at < spans.size(); ++at)
            EXPECT_GE(spans[at].first, spans[at - 1].second + 10) << "row " << row;
    }
}

void RestChecks::checkSelection() const
{
    const Selection& selection = edited_.document->selection();
    EXPECT_EQ(selection.isRemovable, selection.type != Selection::none());
    const Person* const selected = edited_.document->selectionPerson();
    EXPECT_EQ(selected != nullptr, selection.type == Selection::ofPerson());
    for (const LeafView* const node : edited_.canvas().personLayer().nodes())
        EXPECT_EQ(node->infoView().isFocused(), &node->person() == selected);
    const LinkLayer* const blue = edited_.canvas().branchLayer().selectedLink();
    if (blue) {
        EXPECT_EQ(selection.type, blue->linkType());
    }
    const auto isOfSelection = [&](const auto& shape) {
        return shape->source()->recordId() == selection.from && shape->target()->recordId() == selection.to;
    };
    if (selection.isLink()) {
        EXPECT_TRUE(std::ranges::any_of(edited_.canvas().branchLayer().layers(), isOfSelection));
    }
}

/// At rest the family is always the same after the same step.
void RestChecks::checkText()
{
    const std::uint64_t step = edited_.journal().undoStep().value_or(StepId()).number;
    const std::string text = edited_.text().toStdString();
    EXPECT_EQ(texts_.emplace(step, text).first->second, text) << "step " << step;
}

/// Whoever has links has a generation.
void RestChecks::checkGenerations() const
{
    for (const Person* const person : edited_.pool().persons()) {
        const bool isLinked = !person->parents().empty() || !person->children().empty() || !person->partners().empty();
        EXPECT_TRUE(person->generation().has_value() || !isLinked);
    }
}

void RestChecks::checkFullRun() const
{
    auto read = readFamily(edited_.text(), QStringLiteral("family"));
    ASSERT_TRUE(read);
    Pool& pool = *read.value().context->allPools().front();
    pool.process();
    for (const Person* const person : pool.persons())
        EXPECT_EQ(edited_.context().person(person->recordId())->generation(), person->generation());
}

} // namespace lineara
