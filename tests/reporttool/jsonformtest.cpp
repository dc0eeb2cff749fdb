#include "toolrun.h"

#include <gtest/gtest.h>

// The form that JSON tells of.

namespace {

using ToolTest::PlainLocale;
using ToolTest::RunTool;
using ToolTest::Scratch;
using ToolTest::ToolRun;

/// What `show` says of the file that the JSON becomes.
QString FormOf(const QByteArray& json)
{
    const Scratch scratch;
    const ToolRun run =
        RunTool({"convert", "--from", "json", "-", "out"}, PlainLocale(json, scratch.Folder()));
    EXPECT_EQ(run.exitCode, 0) << json.constData();
    EXPECT_TEXT(run.Errors(), "");
    return RunTool({"show", "out"}, PlainLocale({}, scratch.Folder()))
        .Output()
        .section(QStringLiteral("form:"), 1)
        .section(QLatin1Char('\n'), 0, 0)
        .trimmed();
}

#define FREQUENCY R"("frequency": {"value": 1})"

TEST(ToolJsonForm, FileWithoutRepresentationHoldsAPlainOne)
{
    EXPECT_TEXT(FormOf(R"({"form": "file", )" FREQUENCY "}"), "binary file with a plain representation");
    EXPECT_TEXT(FormOf(R"({"form": "file", "representation": null, )" FREQUENCY "}"),
                "binary file with a plain representation");
    EXPECT_TEXT(FormOf(R"({"form": "file", "representation": "compressed", )" FREQUENCY "}"),
                "binary file with a compressed representation");
    EXPECT_TEXT(FormOf(R"({"form": "plain", )" FREQUENCY "}"), "plain representation");
    EXPECT_TEXT(FormOf(R"({"form": null, )" FREQUENCY "}"), "XML");
}

TEST(ToolJsonForm, WhatIsNoTextIsRefused)
{
    struct
    {
        const char* json;
        const char* error;
    } const rows[] = {{R"({"form": 5})", "form: a text is expected"},
                      {R"({"form": true})", "form: a text is expected"},
                      {R"({"form": ["xml"]})", "form: a text is expected"},
                      {R"({"form": "file", "representation": 5})", "representation: a text is expected"},
                      {R"({"form": "files"})", "form: no form is called so"}};
    for (const auto& row : rows) {
        const ToolRun run = RunTool({"convert", "--from", "json", "-", "-"}, PlainLocale(row.json));
        EXPECT_EQ(run.exitCode, 1) << row.json;
        EXPECT_TEXT(run.Output(), "");
        EXPECT_TEXT(run.Errors(), QStringLiteral("reporttool: -: %1\n").arg(QLatin1String(row.error)));
    }
}

} // namespace
