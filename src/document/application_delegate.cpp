#include "document/application_delegate.h"

#include <cassert>

namespace lineara {

namespace {

ApplicationDelegate* sharedDelegate = nullptr;

} // namespace

ApplicationDelegate::ApplicationDelegate()
{
    assert(!sharedDelegate);
    sharedDelegate = this;
}

ApplicationDelegate::~ApplicationDelegate()
{
    sharedDelegate = nullptr;
}

ApplicationDelegate* ApplicationDelegate::shared()
{
    return sharedDelegate;
}

} // namespace lineara
