#include <gmock/gmock.h>

#include <clocale>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string>

namespace {

/// Whether the environment variable is absent or holds what is found in this process.
bool AgreesWithEnvironment(const char* variable, const std::string& found)
{
    const char* expected = std::getenv(variable);
    if (expected == nullptr || found == expected)
        return true;
    std::fprintf(stderr, "%s asks for '%s', this process has '%s'\n", variable, expected, found.c_str());
    return false;
}

/// Seconds by which the local time of this process is ahead of UTC in January.
long UtcOffset()
{
    std::tm januaryNoon{};
    januaryNoon.tm_year = 120;
    januaryNoon.tm_mday = 15;
    januaryNoon.tm_hour = 12;
    const std::time_t asLocalTime = std::mktime(&januaryNoon);
    std::tm utc = *std::gmtime(&asLocalTime);
    utc.tm_isdst = 0;
    return static_cast<long>(asLocalTime - std::mktime(&utc));
}

} // namespace

/// Runs the tests in the locale of the environment, as the desktop programs that use the library run. A run
/// that is meant to prove independence of locale or time zone says so in the environment and fails here if
/// the setting had no effect.
int main(int argc, char** argv)
{
    testing::InitGoogleMock(&argc, argv);

    // Whoever runs the tests in the background may ignore Ctrl-C, and so would the programs that some of them interrupt.
    std::signal(SIGINT, SIG_DFL);

    // As QCoreApplication does. A locale that the machine does not have leaves the plain one.
    std::setlocale(LC_ALL, "");

    if (!AgreesWithEnvironment("REPORTGENERATOR_TEST_DECIMAL_POINT", std::localeconv()->decimal_point) ||
        !AgreesWithEnvironment("REPORTGENERATOR_TEST_UTC_OFFSET", std::to_string(UtcOffset())))
        return EXIT_FAILURE;

    const int result = RUN_ALL_TESTS();
    if (result != EXIT_SUCCESS && GTEST_FLAG_GET(shuffle))
        std::printf("The order was that of --gtest_random_seed=%d\n",
                    testing::UnitTest::GetInstance()->random_seed());
    return result;
}
