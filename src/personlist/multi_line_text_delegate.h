#pragma once

#include <memory>

class QKeyEvent;
class QPlainTextEdit;

namespace lineara {

/// Lets a field take several lines: Return, which would end the editing, breaks the line.
class MultiLineTextDelegate
{
public:
    /// The one of the whole program.
    static std::shared_ptr<const MultiLineTextDelegate> shared();
    /// Puts a new one into the place of the shared one, which lives on in the fields that have it.
    static void renewShared();

    /// Breaks the line if the key asks for it; false for any other key, which stays the field's own.
    bool takeKey(QPlainTextEdit& field, const QKeyEvent& key) const;
};

} // namespace lineara
