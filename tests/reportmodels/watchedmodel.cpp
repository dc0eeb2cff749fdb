#include "reportmodels/watchedmodel.h"

#ifdef REPORTGENERATOR_TEST_MODELTESTER
#    include <QtTest/QAbstractItemModelTester>
#else
class QAbstractItemModelTester
{
};
#endif

namespace ReportModelsTest {

using REPORTGENERATOR::ReportBase;
using REPORTGENERATOR::ReportModel;

namespace {

void ShowBelow(const ReportModel& model, const QModelIndex& parent, const QString& indent, QString& text)
{
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, ReportModel::NameColumn, parent);
        text += QStringLiteral("%1%2 | %3\n")
                    .arg(indent, index.data().toString(),
                         index.siblingAtColumn(ReportModel::ValueColumn).data().toString());
        ShowBelow(model, index, indent + QStringLiteral("  "), text);
    }
}

} // namespace

WatchedModel::WatchedModel(const ReportBase& report, Tester tester)
{
#ifdef REPORTGENERATOR_TEST_MODELTESTER
    if (tester == Tester::Watches)
        m_tester = std::make_unique<QAbstractItemModelTester>(
            &model, QAbstractItemModelTester::FailureReportingMode::Fatal);
#else
    static_cast<void>(tester);
#endif
    model.SetReport(report);
    model.SetReadOnly(false);

    QObject::connect(&model, &ReportModel::modelReset, &model,
                     [this] { Note(QStringLiteral("modelReset")); });
    QObject::connect(&model, &ReportModel::rowsInserted, &model,
                     [this](const QModelIndex& parent, int first, int last) {
                         NoteRows("rowsInserted", parent, first, last);
                     });
    QObject::connect(&model, &ReportModel::rowsRemoved, &model,
                     [this](const QModelIndex& parent, int first, int last) {
                         NoteRows("rowsRemoved", parent, first, last);
                     });
    QObject::connect(&model, &ReportModel::dataChanged, &model,
                     [this](const QModelIndex& first, const QModelIndex& last) {
                         QString line = QStringLiteral("dataChanged ") + model.PathOf(first);
                         if (first.row() != last.row())
                             line += QStringLiteral(" to ") + model.PathOf(last);
                         if (first.column() != 0 || last.column() != 1 || first.parent() != last.parent())
                             line += QStringLiteral(" in odd columns");
                         Note(line);
                     });
    QObject::connect(
        &model, &ReportModel::Refused, &model, [this](const QModelIndex& index, const QString& text) {
            Note(QStringLiteral("Refused at %1: %2")
                     .arg(index.isValid() ? model.PathOf(index) : QStringLiteral("the report"), text));
        });
    QObject::connect(&model, &ReportModel::ReportChanged, &model,
                     [this] { Note(QStringLiteral("ReportChanged")); });
}

WatchedModel::~WatchedModel() = default;

bool WatchedModel::CanBeTested()
{
#ifdef REPORTGENERATOR_TEST_MODELTESTER
    return true;
#else
    return false;
#endif
}

QModelIndex WatchedModel::At(const char* path) const
{
    return model.IndexOf(QLatin1String(path), ReportModel::ValueColumn);
}

QModelIndex WatchedModel::NameAt(const char* path) const
{
    return model.IndexOf(QLatin1String(path));
}

QString WatchedModel::TakeSignals()
{
    QString lines;
    lines.swap(m_signals);
    return lines;
}

QString WatchedModel::Shown() const
{
    QString text;
    ShowBelow(model, QModelIndex(), QString(), text);
    return text;
}

void WatchedModel::Note(const QString& line)
{
    m_signals += line + QLatin1Char('\n');
}

void WatchedModel::NoteRows(const char* name, const QModelIndex& parent, int first, int last)
{
    Note(QStringLiteral("%1 %2 %3-%4").arg(QLatin1String(name), model.PathOf(parent)).arg(first).arg(last));
}

} // namespace ReportModelsTest
