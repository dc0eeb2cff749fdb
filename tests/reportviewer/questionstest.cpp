#include "viewerwindow.h"

#include "support/expect.h"

#include <reportviewer/questions.h>

#include <gtest/gtest.h>

#include <QtCore/QTimer>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>

#include <functional>

namespace {

using ReportViewer::QuestionDialogs;
using ReportViewer::Questions;

/// What a box asked, and how it reads its text.
struct Asked
{
    QString text;
    Qt::TextFormat format = Qt::AutoText;
    QMessageBox::StandardButton usual = QMessageBox::NoButton;
};

/// Has a box come up and presses the button in it.
Asked Answer(QMessageBox::StandardButton answer, const std::function<void()>& ask)
{
    Asked asked;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        if (auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            timer.stop();
            asked = {box->text(), box->textFormat(), box->standardButton(box->defaultButton())};
            box->button(answer)->click();
        }
    });
    timer.start(1);
    ask();
    return asked;
}

TEST(QuestionDialogs, ANameThatLooksLikeMarkupIsShownAsItIs)
{
    QWidget window;
    QuestionDialogs dialogs(&window);
    const QString name = QStringLiteral("/tmp/<i>it<br>x.xml");
    Questions::Changes changes = Questions::Changes::Cancel;
    Asked asked = Answer(QMessageBox::Discard, [&] { changes = dialogs.AskAboutChanges(name); });
    EXPECT_TEXT(asked.text, "Save the changes of /tmp/<i>it<br>x.xml?");
    EXPECT_EQ(asked.format, Qt::PlainText);
    EXPECT_EQ(asked.usual, QMessageBox::Save);
    EXPECT_EQ(changes, Questions::Changes::Discard);

    bool mayReplace = false;
    asked =
        Answer(QMessageBox::Yes, [&] { mayReplace = dialogs.MayReplace(name, Questions::Loss::OtherFile); });
    EXPECT_TEXT(asked.text, "/tmp/<i>it<br>x.xml is there already. Replace it?");
    EXPECT_EQ(asked.format, Qt::PlainText);
    EXPECT_EQ(asked.usual, QMessageBox::No);
    EXPECT_TRUE(mayReplace);
}

TEST(QuestionDialogs, EachButtonIsItsAnswer)
{
    QWidget window;
    QuestionDialogs dialogs(&window);
    const auto about = [&](QMessageBox::StandardButton button) {
        Questions::Changes changes = Questions::Changes::Cancel;
        Answer(button, [&] { changes = dialogs.AskAboutChanges(QString()); });
        return changes;
    };
    EXPECT_EQ(about(QMessageBox::Save), Questions::Changes::Save);
    EXPECT_EQ(about(QMessageBox::Discard), Questions::Changes::Discard);
    EXPECT_EQ(about(QMessageBox::Cancel), Questions::Changes::Cancel);
    bool mayReplace = true;
    Answer(QMessageBox::No,
           [&] { mayReplace = dialogs.MayReplace(QStringLiteral("a"), Questions::Loss::ChangedFile); });
    EXPECT_FALSE(mayReplace);
}

TEST(QuestionDialogs, WhatIsLostIsNamedLineByLine)
{
    QWidget window;
    QuestionDialogs dialogs(&window);
    QStringList what = {QStringLiteral("element '<b>'"), QStringLiteral("%1 %2")};
    bool mayLose = true;
    Asked asked = Answer(QMessageBox::No, [&] { mayLose = dialogs.MayLose(QStringLiteral("a.xml"), what); });
    EXPECT_TEXT(asked.text, "The report has not all that a.xml says. Saving loses:\n\n"
                            "- element '<b>'\n- %1 %2\n\nSave it?");
    EXPECT_EQ(asked.format, Qt::PlainText);
    EXPECT_EQ(asked.usual, QMessageBox::No);
    EXPECT_FALSE(mayLose);
    for (int i = 3; i <= 12; ++i)
        what << QString::number(i);
    asked = Answer(QMessageBox::Yes, [&] { mayLose = dialogs.MayLose(QStringLiteral("a.xml"), what); });
    EXPECT_TRUE(asked.text.endsWith(QLatin1String("\n- 9\n- 10\nand 2 more\n\nSave it?")))
        << asked.text.toStdString();
    EXPECT_TRUE(mayLose);
}

} // namespace
