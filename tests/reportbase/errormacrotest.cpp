// A header of the platform defines ERROR as a macro. It comes before the library's headers here.
#define ERROR 0

#include <reportgenerator/reportbase/listlogger.h>
#include <reportgenerator/reportbase/logger.h>
#include <reportgenerator/reportbase/reportbase.h>
#include <reportgenerator/reportbase/versionconverterproxy.h>

#include "support/expect.h"

#include <gtest/gtest.h>

#include <QtCore/QString>

TEST(LogLevel, KeepsItsErrorWhenAHeaderBeforeDefinedAMacroOfThatName)
{
    EXPECT_EQ(static_cast<int>(REPORTGENERATOR::LogLevel::ERROR), 0);
    EXPECT_EQ(static_cast<int>(REPORTGENERATOR::ERROR), 0);

    REPORTGENERATOR::ListLogger logger(REPORTGENERATOR::LogLevel::ERROR);
    logger.Trace(REPORTGENERATOR::ERROR, QStringLiteral("text"), false);
    logger.Trace(REPORTGENERATOR::WARNING, QStringLiteral("dropped"), false);
    EXPECT_LOG(logger, {"ERROR: text"});
    EXPECT_TRUE(logger.HasErrors());
}
