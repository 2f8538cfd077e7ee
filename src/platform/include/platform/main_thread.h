#pragma once

#include <functional>

namespace lineara {

/// The one place where work crosses from another thread to the main thread.
///
/// Create the first instance on the main thread, after the application object. The functions run there, in the order
/// in which they were posted, from the event loop (nested loops of menus and dialogs included).
class MainThread
{
public:
    /// Makes the receiving end; call once, early, on the main thread. Calling again does nothing.
    static void prepare();

    /// Runs `work` on the main thread soon. Any thread. Does not wait.
    static void post(std::function<void()> work);
};

} // namespace lineara
