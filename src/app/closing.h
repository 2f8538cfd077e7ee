#pragma once

#include <functional>

namespace lineara {

class Document;

/// Makes sure that closing the document loses nothing without its user's word: asks about unsaved changes, and saves
/// them or gives them up as answered. `answered` is told whether the document may go.
void askToClose(Document& document, const std::function<void(bool mayClose)>& answered);

} // namespace lineara
