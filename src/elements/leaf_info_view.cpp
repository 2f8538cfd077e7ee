#include "elements/leaf_info_view.h"

#include "elements/colours.h"
#include "elements/node_layout.h"
#include "model/person.h"
#include "node_text.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>

namespace lineara {

using node_layout::greatestTextWidth;

namespace {

QString hint()
{
    return QCoreApplication::translate("LeafInfoView", "Unnamed");
}

QString elided(const AdvanceTable& font, const QString& line)
{
    // The table knows no kerning; a line that it takes for too long by a hair is left alone by the elision.
    if (font.advance(line) <= greatestTextWidth)
        return line;
    return font.metrics().elidedText(line, Qt::ElideRight, greatestTextWidth);
}

} // namespace

LeafInfoView::LeafInfoView(Person& person) : person_(&person)
{
    refreshText();
}

QColor LeafInfoView::backgroundColor() const
{
    return colours::panelBackground();
}

QColor LeafInfoView::borderColor() const
{
    return focused_ ? colours::panelFocusBorder() : colours::panelBorder();
}

void LeafInfoView::refreshText()
{
    const NodeFonts& fonts = nodeFonts();
    const QString name = shownName(person_->name());
    double widest = std::max(fonts.usualEraWidth, fitName(fonts.name, name, greatestTextWidth).width);
    if (!isUsualYear(person_->birthYear()) || !isUsualYear(person_->deathYear()))
        widest = std::max(widest, std::min(fonts.era.advance(person_->era()), greatestTextWidth));
    width_ = static_cast<int>(std::ceil(widest + 2 * node_layout::textMargin));
}

bool LeafInfoView::isNameless() const
{
    return shownName(person_->name()).isEmpty();
}

QStringList LeafInfoView::nameLines() const
{
    const QString name = shownName(person_->name());
    if (name.isEmpty())
        return {hint()};
    const AdvanceTable& font = nodeFonts().name;
    const NameFit fit = fitName(font, name, greatestTextWidth);
    if (!fit.breakAt)
        return {elided(font, name)};
    return {elided(font, name.first(*fit.breakAt)), elided(font, name.sliced(*fit.breakAt + 1))};
}

QString LeafInfoView::eraLine() const
{
    return elided(nodeFonts().era, person_->era());
}

std::optional<QString> LeafInfoView::toolTip() const
{
    const QString name = shownName(person_->name());
    if (!fitName(nodeFonts().name, name, greatestTextWidth).isElided)
        return std::nullopt;
    return person_->name();
}

} // namespace lineara
