// Included by files that differ in how they include windows.h: what a program names of the library beside it.

#include "support/expect.h"

#include <gtest/gtest.h>

#include <QtCore/QString>

namespace {

using REPORTGENERATOR::ListLogger;
using REPORTGENERATOR::MinMax;
using REPORTGENERATOR::ReportBase;

void UseTheLibrary()
{
    EXPECT_EQ(static_cast<int>(REPORTGENERATOR::ERROR), 0);
    EXPECT_EQ(static_cast<int>(REPORTGENERATOR::LogLevel::ERROR), 0);
    EXPECT_EQ(static_cast<int>(REPORTGENERATOR::Text), 30);

    ListLogger logger(REPORTGENERATOR::LogLevel::ERROR);
    logger.Trace(REPORTGENERATOR::ERROR, QStringLiteral("text"), false);
    EXPECT_LOG(logger, {"ERROR: text"});

    ReportBase report;
    report.GetFrequency().SetMin(1.0);
    report.GetFrequency().SetMax(2.0);
    EXPECT_EQ(report.GetFrequency().GetMin(), 1.0);

    // The platform's own names are there as well.
    EXPECT_NE(GetCurrentProcessId(), DWORD(0));
}

} // namespace
