#include "home_folder.h"

#include <QByteArray>
#include <QtGlobal>

#include <pwd.h>
#include <unistd.h>

namespace lineara {

void settleHomeFolder()
{
    if (!qEnvironmentVariableIsEmpty("HOME"))
        return;
    const passwd* const user = ::getpwuid(::geteuid());
    if (user && user->pw_dir)
        qputenv("HOME", QByteArray(user->pw_dir));
}

} // namespace lineara
