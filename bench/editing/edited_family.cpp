#include "edited_family.h"

#include "canvas/made_family.h"
#include "canvas/tree_view.h"
#include "document/document_window.h"
#include "personlist/person_table_view_controller.h"
#include "platform/serial_queue.h"
#include "store/family_file.h"

#include <QApplication>
#include <QMouseEvent>
#include <QTemporaryDir>

#include <cstdlib>
#include <utility>

namespace lineara::bench {

/// Knows when it was sorted.
class WatchedList : public PersonTableViewController
{
public:
    using PersonTableViewController::PersonTableViewController;

    void rearrangeObjects() override
    {
        PersonTableViewController::rearrangeObjects();
        sorted = FrameClock::Clock::now();
    }

    FrameClock::Clock::time_point sorted;
};

namespace {

constexpr QSize windowSize(1750, 950);

std::unique_ptr<Document> openMade(std::uint32_t persons)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("made.lineara"));
    const auto made = madeFamily(persons);
    auto opened = saveFamilyFile(*made, path) ? Document::open(path) : Failure{path};
    if (opened.failed()) {
        std::fprintf(stderr, "%s\n", qPrintable(opened.failure().message));
        std::exit(EXIT_FAILURE);
    }
    return std::move(opened.value());
}

} // namespace

EditedFamily::EditedFamily(std::uint32_t persons)
    : document_(openMade(persons)), list_(std::make_unique<WatchedList>(document_->pool()))
{
    document_->window().resize(windowSize);
    document_->showList(*list_);
    document_->window().show();
    settle();
}

EditedFamily::~EditedFamily() = default;

void EditedFamily::settle()
{
    bool settled = false;
    document_->whenSettled([&] { settled = true; });
    waitUntil([&] { return settled && !document_->poolProcessing().busy(); });
    document_->commit();
    QApplication::processEvents();
}

void EditedFamily::waitUntil(const std::function<bool()>& done)
{
    while (!done())
        QApplication::processEvents(QEventLoop::WaitForMoreEvents, 1);
}

FrameClock::Clock::time_point EditedFamily::lastRefresh() const
{
    return list_->sorted;
}

void EditedFamily::send(QEvent::Type type, QPointF pixel)
{
    const bool isMove = type == QEvent::MouseMove;
    const bool isUp = type == QEvent::MouseButtonRelease;
    QMouseEvent event(type, pixel, canvas().viewport()->mapToGlobal(pixel), isMove ? Qt::NoButton : Qt::LeftButton,
                      isUp ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(canvas().viewport(), &event);
}

} // namespace lineara::bench
