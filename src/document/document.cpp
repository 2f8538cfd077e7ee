#include "document/document.h"

#include "canvas/placement.h"
#include "canvas/tree_view.h"
#include "document/document_window.h"
#include "elements/leaf_nursery.h"
#include "opening_report.h"

#include <QFileInfo>

namespace lineara {

QString Document::defaultDraftName()
{
    return QStringLiteral("Lineara");
}

Outcome<std::unique_ptr<Document>> Document::open(const QString& path)
{
    auto family = openFamily(path);
    if (family.failed())
        return family.failure();
    return std::unique_ptr<Document>(new Document(path, std::move(family.value())));
}

Document::Document(QString path, OpenedFamily family)
    : path_(std::move(path)), family_(std::move(family)), nodes_(context(), chance_),
      window_(std::make_unique<DocumentWindow>())
{
    assembleWindow();
    enqueueFirstProcessing();
}

Document::~Document() = default;

TreeView* Document::treeView() const
{
    return window_->canvas();
}

void Document::whenSettled(std::function<void()> settled)
{
    WorkBlock block;
    block.onMain(std::move(settled));
    poolProcessing_.enqueue(std::move(block));
}

void Document::assembleWindow()
{
    const QString name = path_.isEmpty() ? defaultDraftName() : QFileInfo(path_).fileName();
    window_->setWindowTitle(name);
    window_->setWindowFilePath(path_);
    if (const auto report = openingReport(family_))
        window_->showOpeningReport(report->summary, report->details);
}

void Document::enqueueFirstProcessing()
{
    // Shared by the steps of one block, which never run at the same time.
    struct Run
    {
        FamilySnapshot snapshot;
        std::optional<engine::ProcessResult> result;
    };
    auto run = std::make_shared<Run>();
    WorkBlock block;
    block.onMainWaiting([this, run] { run->snapshot = pool().snapshot(); })
        .compute([run](std::stop_token stop) { run->result = engine::process(run->snapshot.graph, stop); })
        .onMainWaiting([this, run] {
            if (run->result)
                pool().apply(run->snapshot, *run->result);
        })
        .onMain([this] { handleOnboarding(); })
        .onMain([this] { initTreeView(); });
    poolProcessing_.enqueue(std::move(block));
}

void Document::handleOnboarding()
{
    window_->setOnboardingVisible(pool().persons().empty());
}

void Document::initTreeView()
{
    const QSize frame = firstFrame(window_->width(), pool().maxGenerationSize(), pool().maxGeneration());
    window_->showCanvas(new TreeView(pool(), frame, chance_));
}

} // namespace lineara
