#pragma once

namespace lineara {

/// What all documents of the program share. There is one for the whole run, made before the first document; programs
/// without menus need none.
class ApplicationDelegate
{
public:
    ApplicationDelegate();
    virtual ~ApplicationDelegate();
    ApplicationDelegate(const ApplicationDelegate&) = delete;
    ApplicationDelegate& operator=(const ApplicationDelegate&) = delete;

    /// Nullptr where the program has none.
    static ApplicationDelegate* shared();

    /// Closes the window that its user works in, whatever it is, to make room for that of a document which is being
    /// opened. Nothing is asked, and nothing is lost.
    virtual void closeMainWindow() {}

    /// Whether the document that was last active, or last changed its selection, has something to remove.
    bool canRemove() const { return canRemove_; }
    void setCanRemove(bool canRemove) { canRemove_ = canRemove; }

private:
    bool canRemove_ = false;
};

} // namespace lineara
