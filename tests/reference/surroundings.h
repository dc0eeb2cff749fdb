#ifndef REFERENCE_SURROUNDINGS_H
#define REFERENCE_SURROUNDINGS_H

// What the examples in the comments of the headers take for granted: the headers, and objects that are there already.

#include <reportgenerator/models/reportmodel.h>
#include <reportgenerator/qt/everything.h>
#include <reportgenerator/reportbase/listlogger.h>
#include <reportgenerator/reportbase/settingsnotifier.h>

#include <QtCore/QDateTime>
#include <QtTest/QTest>
#include <QtWidgets/QTreeView>

#include <gtest/gtest.h>

#include <iostream>

namespace surroundings {

using namespace REPORTGENERATOR;

class TaskConverter : public IXmlConverter
{
};

class CountingConverter : public IXmlConverter
{
public:
    int count = 0;
};

extern ReportBase report;
extern ReportBase read;
extern ReportBase task;
extern ReportBase oldTask;
extern Area area;
extern Coordinate point;
extern Frequency frequency;
extern RegisterCenter* center;
extern SettingsNotifier notifier;
extern QTreeView view;
extern const QString xml;
extern const QString path;
extern const QString remark;
extern const QDateTime start;

void show(const QString& text);
void Show(const QString& text);
void Offer(const QString& text);
void Plan(const QString& text);
void Draw(const Coordinate& coordinate);

} // namespace surroundings

#endif
