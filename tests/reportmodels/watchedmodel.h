#ifndef TESTS_REPORTMODELS_WATCHEDMODEL_H
#define TESTS_REPORTMODELS_WATCHEDMODEL_H

// A model whose signals are written down and which Qt's own tester of models watches, where there is one.
//
//     WatchedModel watched(CompleteReport());
//     watched.model.setData(watched.At("area.name", ReportModel::ValueColumn), QStringLiteral("Sea"));
//     EXPECT_TEXT(watched.TakeSignals(), "dataChanged area.name\n"
//                                        "ReportChanged\n");

#include <reportgenerator/models/reportmodel.h>

#include <QtCore/QString>

#include <memory>

class QAbstractItemModelTester;

namespace ReportModelsTest {

/// Whether Qt's tester is to watch: it looks at every row after every change.
enum class Tester
{
    Watches,
    StaysAway
};

class WatchedModel
{
public:
    /// A model that can be changed.
    explicit WatchedModel(const REPORTGENERATOR::ReportBase& report, Tester tester = Tester::Watches);
    ~WatchedModel();
    WatchedModel(const WatchedModel& other) = delete;
    WatchedModel& operator=(const WatchedModel& other) = delete;

    /// Whether Qt's tester is there to be had.
    static bool CanBeTested();

    /// Whether it watches this model.
    bool IsTested() const { return m_tester != nullptr; }

    /// The value cell of a path, or its name cell.
    QModelIndex At(const char* path) const;
    QModelIndex NameAt(const char* path) const;

    /// A line for each signal since this was asked for the last time.
    QString TakeSignals();

    /// What a view shows: a line for each row of the tree, indented, with name and value.
    QString Shown() const;

    REPORTGENERATOR::ReportModel model;

private:
    void Note(const QString& line);
    void NoteRows(const char* name, const QModelIndex& parent, int first, int last);

    std::unique_ptr<QAbstractItemModelTester> m_tester;
    QString m_signals;
};

} // namespace ReportModelsTest

#endif
