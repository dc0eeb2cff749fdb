#include "support/expect.h"

#include <reportpages/completion.h>
#include <reportpages/manpage.h>

#include <gtest/gtest.h>

namespace {

using ReportPages::ManPageOf;
using ReportPages::PageFacts;

PageFacts Facts()
{
    return {QStringLiteral("looker"), QStringLiteral("look at things"), QStringLiteral("looker 1.2"), {}};
}

TEST(ManPage, IsMadeOfTheHelp)
{
    const QString help = QStringLiteral("Usage: /build/bin/looker [options] THING...\n"
                                        "Looks at things, in a path such as C:\\things or\n"
                                        ".things too.\n"
                                        "\n"
                                        "Exit codes: 0 it's good, 1 it isn't, 2 a wrong word. They are\n"
                                        "always the same.\n"
                                        "\n"
                                        "Things are:\n"
                                        "  a cup         what one drinks\n"
                                        "                of\n"
                                        "  something-without-any-text\n"
                                        "\n"
                                        "Options:\n"
                                        "  -h, --help     Show this help.\n"
                                        "  --by <eye-no>  With this eye; the left one\n"
                                        "                 is 1.\n"
                                        "\n"
                                        "Arguments:\n"
                                        "  look           This command.\n"
                                        "  THING          What to look at.\n"
                                        "\n"
                                        "Examples:\n"
                                        "  looker --by 1 cup\n"
                                        "      Look at the cup.\n");
    PageFacts facts = Facts();
    facts.seeAlso = QStringList{QStringLiteral("hearer"), QStringLiteral("a-b")};
    EXPECT_TEXT(QString::fromUtf8(ManPageOf(facts, help)), R"(.TH LOOKER 1 "" "looker 1.2" "User Commands"
.nh
.ad l
.SH NAME
looker \- look at things
.SH SYNOPSIS
\fBlooker\fR [options] THING...
.SH DESCRIPTION
Looks at things, in a path such as C:\ethings or .things too.
.PP
Things are:
.TP
\fBa cup\fR
what one drinks of
.TP
\fBsomething\-without\-any\-text\fR
\&
.SH EXIT STATUS
.TP
\fB0\fR
it\(aqs good
.TP
\fB1\fR
it isn\(aqt
.TP
\fB2\fR
a wrong word
.PP
They are always the same.
.SH OPTIONS
.TP
\fB\-h, \-\-help\fR
Show this help.
.TP
\fB\-\-by \fR<\fIeye\-no\fR>\fB\fR
With this eye; the left one is 1.
.SH ARGUMENTS
.TP
\fBTHING\fR
What to look at.
.SH EXAMPLES
.TP
\fBlooker \-\-by 1 cup\fR
Look at the cup.
.SH SEE ALSO
\fBhearer\fR(1),
\fBa\-b\fR(1)
)");
}

TEST(ManPage, NoLineOfTextIsACommandOrLong)
{
    const QString help = QStringLiteral("Usage: looker\n%1 .dot\n").arg(QString(79, QLatin1Char('x')));
    const QByteArray page = ManPageOf(Facts(), help);
    EXPECT_TRUE(page.contains("\n.SH SYNOPSIS\n\\fBlooker\\fR\n")) << page.constData();
    EXPECT_TRUE(page.contains("\n" + QByteArray(79, 'x') + "\n\\&.dot\n")) << page.constData();
}

TEST(Completion, KnowsTheFieldsByTheLibrarysSchemas)
{
    EXPECT_TEXT(ReportPages::FieldPaths().join(QLatin1Char(' ')),
                "frequency frequency.value frequency.min frequency.max frequency.use "
                "ifBandwidth ifBandwidth.value ifBandwidth.min ifBandwidth.max "
                "area area.name area.version area.scriptId area.coordinate area.coordinate[1] "
                "area.coordinate[1].longitude area.coordinate[1].latitude");
    EXPECT_TEXT(ReportPages::Assignments().join(QLatin1Char(' ')),
                "frequency.value= frequency.min= frequency.max= frequency.use=true frequency.use=false "
                "ifBandwidth.value= ifBandwidth.min= ifBandwidth.max= area.name= area.scriptId= "
                "area.coordinate[1].longitude= area.coordinate[1].latitude=");
}

} // namespace
