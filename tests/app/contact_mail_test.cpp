#include "contact_mail.h"

#include <gtest/gtest.h>

using namespace lineara;

TEST(ContactMail, HasTheTitleAsItsSubject)
{
    const QString address = contactAddress(QStringLiteral("Report a Problem"));
    EXPECT_TRUE(address.startsWith(QStringLiteral("mailto:"))) << address.toStdString();
    EXPECT_TRUE(address.endsWith(QStringLiteral("?subject=Report%20a%20Problem"))) << address.toStdString();
}

TEST(ContactMail, EscapesNothingButSpaces)
{
    const QString address = contactAddress(QStringLiteral("50% more? \u00fc/ü"));
    EXPECT_TRUE(address.endsWith(QStringLiteral("subject=50%%20more?%20\u00fc/ü"))) << address.toStdString();
}

TEST(ContactMail, LeavesOutTheMarkOfTheUnderlinedLetter)
{
    EXPECT_EQ(withoutMnemonic(QStringLiteral("Send &Feedback")), QStringLiteral("Send Feedback"));
    EXPECT_EQ(withoutMnemonic(QStringLiteral("&Salt && Pepper&")), QStringLiteral("Salt & Pepper"));
    EXPECT_EQ(withoutMnemonic(QStringLiteral("&&&A")), QStringLiteral("&A"));
}
