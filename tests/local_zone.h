#pragma once

#include <QByteArray>

#include <ctime>

namespace lineara::test {

/// Sets the local time zone while it lives.
class LocalZone
{
public:
    explicit LocalZone(const char* zone) : before_(qgetenv("TZ"))
    {
        qputenv("TZ", zone);
        tzset();
    }
    ~LocalZone()
    {
        if (before_.isNull())
            qunsetenv("TZ");
        else
            qputenv("TZ", before_);
        tzset();
    }
    LocalZone(const LocalZone&) = delete;
    LocalZone& operator=(const LocalZone&) = delete;

private:
    QByteArray before_;
};

} // namespace lineara::test
