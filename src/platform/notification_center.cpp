#include "platform/notification_center.h"

namespace lineara {

NotificationCenter& NotificationCenter::defaultCenter()
{
    static NotificationCenter instance;
    return instance;
}

} // namespace lineara
