#include "opened_program.h"

#include "canvas/placement.h"
#include "canvas/tree_view.h"
#include "document/document_window.h"

#include <QApplication>
#include <QDialog>
#include <QMenu>
#include <QMenuBar>

#include <gtest/gtest.h>

#include <algorithm>

namespace lineara {

namespace {

template<class Window>
Window* shownWindow()
{
    for (QWidget* const widget : QApplication::topLevelWidgets())
        if (auto* const window = dynamic_cast<Window*>(widget); window && window->isVisible())
            return window;
    return nullptr;
}

template<class Actions>
QAction* named(const Actions& actions, const QString& name)
{
    const auto found = std::ranges::find_if(actions, [&](const QAction* action) {
        return action->text().remove(QLatin1Char('&')).startsWith(name) && action->isEnabled();
    });
    return found == actions.end() ? nullptr : *found;
}

} // namespace

OpenedProgram::OpenedProgram() : OpenedProgram(QString()) {}

OpenedProgram::OpenedProgram(const QString& home) : home_(home.isEmpty() ? ownHome_.path() : home)
{
    // Wherever the program proposes a file or keeps settings, it is here.
    qputenv("HOME", home_.toLocal8Bit());
    for (const char* const folder : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"})
        qunsetenv(folder);
    delegate_.emplace();
    delegate_->start({});
}

OpenedProgram::~OpenedProgram() = default;

QWidget& OpenedProgram::startWindow() const
{
    return *shownWindow<QWidget>();
}

DocumentWindow* OpenedProgram::familyWindow() const
{
    auto* const window = shownWindow<DocumentWindow>();
    return window && window->canvas() ? window : nullptr;
}

TreeView& OpenedProgram::canvas() const
{
    return *familyWindow()->canvas();
}

Pool& OpenedProgram::pool() const
{
    return canvas().pool();
}

QDialog* OpenedProgram::dialog() const
{
    return shownWindow<QDialog>();
}

LeafView& OpenedProgram::node(std::size_t person) const
{
    return *pool().persons()[person]->leafView();
}

std::size_t OpenedProgram::personCount() const
{
    return pool().persons().size();
}

Generations OpenedProgram::generations() const
{
    Generations all;
    for (const Person* const person : pool().persons())
        all.emplace_back(person->generation());
    return all;
}

bool OpenedProgram::isAtRest() const
{
    const auto stands = [](const Person* person) {
        return !person->generation() ||
               person->leafView()->yConstraint()->constant == rowConstant(person->generation());
    };
    return std::ranges::all_of(pool().persons(), stands) && canvas().generations() == pool().generations();
}

QPoint OpenedProgram::at(std::size_t person, NodePart part) const
{
    const LeafView& shown = node(person);
    switch (part) {
    case NodePart::PartnerHandle:
        return at(shown.partnerHandle().frame().centre());
    case NodePart::ChildHandle:
        return at(shown.childHandle().frame().centre());
    case NodePart::Info:
        return at(shown.infoFrame().centre());
    case NodePart::Image:
        return at(shown.imageFrame().centre());
    }
    return {};
}

QPoint OpenedProgram::at(const LinkLayer& link) const
{
    constexpr double pitch = 3;
    const Frame bounds = link.bounds();
    for (double y = bounds.y; y < bounds.y + bounds.height; y += pitch)
        for (double x = bounds.x; x < bounds.x + bounds.width; x += pitch) {
            // Whole pixels differ a little from the point sought.
            const QPoint point = at({x, y});
            if (canvas().hit(canvas().toCanvas(canvas().viewport()->mapFromGlobal(point))).link == &link)
                return point;
        }
    ADD_FAILURE() << "a link lies wholly below others";
    return {};
}

LinkLayer* OpenedProgram::link(std::size_t source, std::size_t target) const
{
    for (LinkLayer* const shape : pool().persons()[source]->linkLayers())
        if (shape->source() == pool().persons()[source] && shape->target() == pool().persons()[target])
            return shape;
    return nullptr;
}

QPoint OpenedProgram::at(CanvasPoint point) const
{
    return canvas().viewport()->mapToGlobal(canvas().toViewport(point).toPoint());
}

QPoint OpenedProgram::at(const QWidget& widget)
{
    return widget.mapToGlobal(widget.rect().center());
}

QPoint OpenedProgram::at(const QMenu& menu) const
{
    const QMenuBar& bar = *familyWindow()->menuBar();
    return bar.mapToGlobal(bar.actionGeometry(menu.menuAction()).center());
}

bool OpenedProgram::offers(const QMenu& menu, const QString& command)
{
    const QAction* const action = named(menu.actions(), command);
    return action && action->isEnabled();
}

QPoint OpenedProgram::at(const QMenu& menu, const QString& command)
{
    QAction* const action = named(menu.actions(), command);
    EXPECT_TRUE(action) << command.toStdString();
    return action ? menu.mapToGlobal(menu.actionGeometry(action).center()) : QPoint();
}

} // namespace lineara
