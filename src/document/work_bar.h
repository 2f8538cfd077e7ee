#pragma once

#include "watched_work.h"

#include <QPointer>
#include <QProgressBar>
#include <QString>
#include <QTimer>
#include <QWidget>

#include <optional>

namespace lineara {

class DocumentWindow;

/// Tells above the family how far long work is, and lets its user give it up. Of what takes a moment only, nothing is
/// told. Main thread only.
class WorkBar
{
public:
    explicit WorkBar(DocumentWindow& window);

    /// `text` says what is being done; what was told before is forgotten.
    void begin(const QString& text, const WatchedWork& work);
    void end();

private:
    void tell();
    void makeBar();

    DocumentWindow& window_;
    QString text_;
    std::optional<WatchedWork> work_;
    QTimer timer_;
    QPointer<QWidget> bar_; // nullptr while there is nothing to tell
    QPointer<QProgressBar> done_;
};

} // namespace lineara
