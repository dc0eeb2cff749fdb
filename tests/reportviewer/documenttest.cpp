#include "viewerwindow.h"

#include "reporttool/samples.h"

#include <reportviewer/document.h>

#include <reportgenerator/reportbase/rgexception.h>

#include <gtest/gtest.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtCore/QSemaphore>
#include <QtCore/QThread>
#include <QtCore/QThreadPool>

#include <new>
#include <stdexcept>

namespace {

using ReportCore::Form;
using ReportViewer::Background;
using ReportViewer::Document;
using ViewerTest::WaitFor;

/// A document whose signals are written down.
class WatchedDocument
{
public:
    WatchedDocument()
    {
        QObject::connect(&document, &Document::Opened, [this] { told << QStringLiteral("opened"); });
        QObject::connect(&document, &Document::ContentsChanged,
                         [this] { told << QStringLiteral("contents"); });
        QObject::connect(&document, &Document::OpeningFailed,
                         [this](const QString& /*name*/, const QString& text) { told << text; });
        QObject::connect(&document, &Document::Progressed, [this](const QString& step, int percent) {
            if (steps.isEmpty() || steps.last() != step)
                steps << step;
            EXPECT_GE(percent, last);
            last = percent;
        });
    }

    void Wait()
    {
        EXPECT_TRUE(WaitFor([this] { return !document.IsLoading() && !document.IsFollowing(); }));
    }

    Document document;
    QStringList told;
    QStringList steps;
    int last = 0;
};

QByteArray ManyPoints(int count)
{
    QByteArray xml = "<ReportBase><Area Version=\"1.0\"><Name>Many</Name>";
    for (int i = 0; i < count; ++i)
        xml += "<Coordinate><Longitude>8.500000</Longitude><Latitude>" + QByteArray::number(i % 90) +
               ".000000</Latitude></Coordinate>";
    return xml + "</Area></ReportBase>";
}

void NeverFails(const QString& text)
{
    ADD_FAILURE() << text.toStdString();
}

/// Whatever threads still do, and what they hand over.
void LetThreadsEnd()
{
    EXPECT_TRUE(QThreadPool::globalInstance()->waitForDone());
    QCoreApplication::sendPostedEvents();
}

TEST(Document, IsEmptyAtFirst)
{
    const Document document;
    EXPECT_TEXT(document.FileName(), "");
    EXPECT_TRUE(document.Shown()->bytes.isEmpty());
    EXPECT_TRUE(document.Losses(REPORTGENERATOR::ReportBase()).empty());
    EXPECT_EQ(document.Form().form, Form::Xml);
}

TEST(Document, LoadsAndTellsHowFarItHasGot)
{
    const ToolTest::Scratch scratch;
    const QString name = scratch.Write("report.xml", ToolTest::FullXml());
    WatchedDocument watched;
    watched.document.Open(name);
    EXPECT_TRUE(watched.document.IsLoading());
    EXPECT_TRUE(watched.told.isEmpty());
    watched.Wait();
    EXPECT_EQ(watched.told, QStringList({QStringLiteral("opened"), QStringLiteral("contents")}));
    EXPECT_EQ(watched.steps,
              QStringList({QStringLiteral("Reading the file"), QStringLiteral("Reading the report"),
                           QStringLiteral("Looking for doubts"), QStringLiteral("Finding the fields"),
                           QStringLiteral("Drawing the area")}));
    EXPECT_TEXT(watched.document.FileName(), name);
    EXPECT_EQ(watched.document.Shown()->bytes, ToolTest::FullXml());
}

TEST(Document, KeepsWhatIsShownWhenAFileCannotBeLoaded)
{
    const ToolTest::Scratch scratch;
    const QString name = scratch.Write("report.xml", ToolTest::FullXml());
    WatchedDocument watched;
    watched.document.Open(name);
    watched.Wait();
    watched.told.clear();
    for (const QString& wrong : {scratch.Path("missing"), scratch.Folder(), QStringLiteral("/dev/zero")}) {
        watched.last = 0;
        watched.document.Open(wrong);
        watched.Wait();
    }
    EXPECT_EQ(watched.told, QStringList({scratch.Path("missing") + QStringLiteral(": no such file"),
                                         scratch.Folder() + QStringLiteral(": is a directory"),
                                         QStringLiteral("/dev/zero: is no file")}));
    EXPECT_TEXT(watched.document.FileName(), name);
    EXPECT_EQ(watched.document.Shown()->bytes, ToolTest::FullXml());
}

TEST(Document, OpeningAnotherFileDropsTheOneThatIsBeingLoaded)
{
    const ToolTest::Scratch scratch;
    const QString many = scratch.Write("many.xml", ManyPoints(2000));
    const QString second = scratch.Write("second.xml", ToolTest::FullXml());
    Document document;
    QStringList shown;
    QObject::connect(&document, &Document::Opened, [&] { shown << document.FileName(); });
    document.Open(many);
    document.Open(second);
    ASSERT_TRUE(WaitFor([&document] { return !document.IsLoading(); }));
    LetThreadsEnd();
    EXPECT_EQ(shown, QStringList{second});
}

TEST(Document, LoadingIsCancelled)
{
    const ToolTest::Scratch scratch;
    const QString many = scratch.Write("many.xml", ManyPoints(2000));
    WatchedDocument watched;
    watched.document.Open(many);
    watched.document.CancelLoading();
    EXPECT_FALSE(watched.document.IsLoading());
    // Whatever the thread still does, nobody is told.
    watched.document.Open(scratch.Write("second.xml", ToolTest::FullXml()));
    watched.document.Clear();
    EXPECT_FALSE(watched.document.IsLoading());
    EXPECT_TEXT(watched.document.FileName(), "");
    LetThreadsEnd();
    EXPECT_EQ(watched.told, QStringList({QStringLiteral("opened"), QStringLiteral("contents")}));
}

TEST(Document, MayBeGoneBeforeTheFileIsThere)
{
    const ToolTest::Scratch scratch;
    const QString many = scratch.Write("many.xml", ManyPoints(2000));
    for (int i = 0; i < 5; ++i) {
        Document document;
        document.Open(many);
        QCoreApplication::processEvents();
    }
    LetThreadsEnd();
}

/// Posts itself again whenever it is handled, and counts.
class Ticker : public QObject
{
public:
    explicit Ticker(Document& document) : m_document(document) { Post(); }

    int count = 0;

    bool event(QEvent* event) override
    {
        if (event->type() != QEvent::User)
            return QObject::event(event);
        if (m_document.IsLoading()) {
            ++count;
            Post();
        }
        return true;
    }

private:
    void Post() { QCoreApplication::postEvent(this, new QEvent(QEvent::User)); }

    Document& m_document;
};

TEST(Document, EventsAreServedWhileALargeFileIsLoaded)
{
    constexpr int POINTS = 200'000;
    const ToolTest::Scratch scratch;
    const QString name = scratch.Write("many.xml", ManyPoints(POINTS));
    Document document;
    document.Open(name);
    Ticker ticker(document);
    ASSERT_TRUE(WaitFor([&document] { return !document.IsLoading(); }));
    // Were it loaded in this thread, one event would have been handled at most.
    EXPECT_GT(ticker.count, 1);
    EXPECT_EQ(static_cast<int>(document.Shown()->outline.items.size()), POINTS);
}

TEST(Background, WorksInAnotherThreadAndHandsOverInTheOwners)
{
    Background background;
    const QThread* worked = nullptr;
    const QThread* handedOver = nullptr;
    background.Start(
        [&](const Background::Steps& /*steps*/) -> Background::Outcome {
            worked = QThread::currentThread();
            return [&] { handedOver = QThread::currentThread(); };
        },
        NeverFails);
    EXPECT_TRUE(background.IsBusy());
    ASSERT_TRUE(WaitFor([&background] { return !background.IsBusy(); }));
    EXPECT_NE(worked, QThread::currentThread());
    EXPECT_EQ(handedOver, QThread::currentThread());
}

TEST(Background, WhateverWorkThrowsIsHandedOverInWords)
{
    const auto failureOf = [](const std::function<void()>& throwing) {
        Background background;
        QString failure;
        background.Start(
            [throwing](const Background::Steps& /*steps*/) -> Background::Outcome {
                throwing();
                return [] { ADD_FAILURE() << "nothing was thrown"; };
            },
            [&failure](const QString& text) { failure = text; });
        EXPECT_TRUE(WaitFor([&background] { return !background.IsBusy(); }));
        return failure;
    };
    EXPECT_TEXT(failureOf([] { throw std::bad_alloc(); }), "out of memory");
    EXPECT_TEXT(failureOf([] { throw RGException(QStringLiteral("not to be had")); }), "not to be had");
    EXPECT_TEXT(failureOf([] { throw std::runtime_error("broken"); }), "broken");
    EXPECT_TEXT(failureOf([] { throw 1; }), "unknown error");
}

TEST(Background, WorkDoesNotWaitForWhatWasCancelledEvenOnOneProcessor)
{
    QThreadPool::globalInstance()->setMaxThreadCount(1);
    QSemaphore end;
    Background background;
    bool isDone = false;
    background.Start(
        [&end](const Background::Steps& /*steps*/) -> Background::Outcome {
            end.acquire();
            return [] { ADD_FAILURE() << "this was cancelled"; };
        },
        NeverFails);
    background.Start(
        [&isDone](const Background::Steps& /*steps*/) -> Background::Outcome {
            return [&isDone] { isDone = true; };
        },
        NeverFails);
    EXPECT_TRUE(WaitFor([&isDone] { return isDone; }));
    end.release();
    LetThreadsEnd();
}

TEST(Document, FollowsAChangedReportWhetherItIsGoodOrNot)
{
    const ToolTest::Scratch scratch;
    WatchedDocument watched;
    watched.document.Open(scratch.Write("report", ToolTest::FullCompressed()));
    watched.Wait();
    REPORTGENERATOR::ReportBase report(watched.document.Shown()->file.report);
    report.GetArea().ResetName();
    watched.document.Follow(report);
    watched.Wait();
    const auto& contents = *watched.document.Shown();
    EXPECT_EQ(contents.file.form.form, Form::Compressed);
    ASSERT_EQ(contents.file.problems.size(), 1U);
    EXPECT_TEXT(contents.file.problems[0].path, "area.name");
}

TEST(Document, KnowsWhetherSomebodyElseHasChangedTheFile)
{
    const ToolTest::Scratch scratch;
    const QString name = scratch.Write("report.xml", ToolTest::FullXml());
    WatchedDocument watched;
    watched.document.Open(name);
    watched.Wait();
    EXPECT_FALSE(watched.document.HasFileChanged());
    scratch.Write("report.xml", "<ReportBase/>");
    EXPECT_TRUE(watched.document.HasFileChanged());
}

} // namespace
