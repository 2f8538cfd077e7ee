#pragma once

#include <QString>

namespace lineara {

/// The address by which 7.0 names a file that 5.5.1 calls so: "C:\a b.jpg" is "file:///C:/a%20b.jpg". Wherever the
/// import looks for the name, it looks for the address, too.
QString addressOfName(const QString& name);

/// What 5.5.1 calls a file of that address. Where that would become another address again, the address itself.
QString nameOfAddress(const QString& address);

} // namespace lineara
