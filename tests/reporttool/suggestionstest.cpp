// What doesn't exist is refused with the nearest name that does.

#include "toolrun.h"

#include <gtest/gtest.h>

namespace {

using ToolTest::RunTool;

constexpr char TRY_HELP[] = "\nTry 'reporttool --help'.";

void ExpectRefused(ToolTest::Arguments arguments, const char* text)
{
    EXPECT_UNUSABLE(RunTool(arguments), QString::fromUtf8(text) + QLatin1String(TRY_HELP));
}

TEST(ToolSuggestions, OfCommands)
{
    ExpectRefused({"chek", "a"}, "no command is called 'chek', did you mean 'check'?");
    ExpectRefused({"SHOW", "a"}, "no command is called 'SHOW', did you mean 'show'?");
    ExpectRefused({"help", "exprot"}, "no command is called 'exprot', did you mean 'export'?");
    // One character away from "set", and two from "settings".
    ExpectRefused({"sett", "a"}, "no command is called 'sett', did you mean 'set'?");
    ExpectRefused({"settins", "a"}, "no command is called 'settins', did you mean 'settings'?");
    ExpectRefused({"lake.xml"}, "no command is called 'lake.xml'");
}

TEST(ToolSuggestions, OfOptions)
{
    ExpectRefused({"show", "--jsn", "a"}, "Unknown option 'jsn'. Did you mean '--json'?");
    ExpectRefused({"check", "--recursiv", "a"}, "Unknown option 'recursiv'. Did you mean '--recursive'?");
    ExpectRefused({"check", "--file-from=a"}, "Unknown option 'file-from'. Did you mean '--files-from'?");
    ExpectRefused({"--verison"}, "Unknown option 'verison'. Did you mean '--version'?");
    ExpectRefused({"check", "--dump", "a"}, "Unknown option 'dump'.");
    // Options of one letter are near to everything.
    ExpectRefused({"check", "-x", "a"}, "Unknown option 'x'.");
    ExpectRefused({"check", "--x", "a"}, "Unknown option 'x'.");
}

TEST(ToolSuggestions, OfLongOptionsWithASingleDash)
{
    ExpectRefused({"show", "-json", "a"}, "Unknown options: j, s, o, n. Did you mean '--json'?");
    ExpectRefused({"show", "-jsn", "a"}, "Unknown options: j, s, n. Did you mean '--json'?");
}

TEST(ToolSuggestions, OfFormsAndFormats)
{
    ExpectRefused({"convert", "a", "b", "--to", "compresed"},
                  "no form is called 'compresed', did you mean 'compressed'?");
    ExpectRefused({"convert", "a", "b", "--to", "jsn"}, "no form is called 'jsn', did you mean 'json'?");
    ExpectRefused({"export", "a", "--to", "geojsn"}, "no format is called 'geojsn', did you mean 'geojson'?");
}

TEST(ToolSuggestions, OfFields)
{
    ExpectRefused({"grep", "frequncy.value > 5", "a"},
                  "condition, column 1: frequncy.value: no field is called \"frequncy\", did you mean "
                  "'frequency'? There are frequency, ifBandwidth, area");
    ExpectRefused({"set", "a", "frequency.mni=5", "-o", "b"},
                  "frequency.mni: no field is called \"mni\", did you mean 'min'? There are min, max, use, "
                  "value");
    ExpectRefused({"set", "a", "--unset", "area.cordinates", "-o", "b"},
                  "area.cordinates: no field is called \"cordinates\", did you mean 'coordinate'? There are "
                  "version, name, coordinate, scriptId");
}

} // namespace
