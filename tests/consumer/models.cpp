#include <reportgenerator/models/reportmodel.h>
#include <reportgenerator/reportbase/reportbase.h>

#include <QCoreApplication>
#include <QString>

#include <cstdio>
#include <cstdlib>

using REPORTGENERATOR::ReportBase;
using REPORTGENERATOR::ReportModel;

namespace {

bool Expect(bool condition, const char* what)
{
    if (!condition) {
        std::fprintf(stderr, "failed: %s\n", what);
    }
    return condition;
}

/// Shows a report, changes it by the model, and is told why a change is refused.
bool ChangeReport()
{
    ReportBase report;
    report.GetFrequency().SetValue(121500000.0);
    ReportModel model;
    model.SetReport(report);
    model.SetReadOnly(false);
    QString refusal;
    QObject::connect(&model, &ReportModel::Refused,
                     [&refusal](const QModelIndex& /*index*/, const QString& text) { refusal = text; });

    const QModelIndex value = model.IndexOf(QString::fromLatin1("frequency.value"), ReportModel::ValueColumn);
    const QModelIndex list = model.IndexOf(QString::fromLatin1("area.coordinate"));
    const bool isAdded = model.AddItem(list, 0);
    const QModelIndex latitude =
        model.IndexOf(QString::fromLatin1("area.coordinate[1].latitude"), ReportModel::ValueColumn);
    const bool isRefused = !model.setData(latitude, 90.5);
    const QString expected =
        QString::fromLatin1("Parameters for m_latitude are not set within range (-90, 90) in 'Coordinate'.");

    return Expect(value.data().toString() == QString::fromLatin1("121500000"), "the value is shown") &&
           Expect(isAdded && model.rowCount(list) == 1, "an item is added") &&
           Expect(isRefused && refusal == expected, "the library's words come through two libraries") &&
           Expect(!report.IsAreaSet() && model.Report().IsAreaSet(), "the model's report is a copy");
}

} // namespace

/// The first argument is the version of Qt that the program should have been built with.
int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const int qtMajor = argc == 2 ? std::atoi(argv[1]) : 0;
    const bool good =
        Expect(qtMajor == QT_VERSION_MAJOR, "the headers of this Qt are used") &&
        Expect(QString::fromLatin1(qVersion()).startsWith(QString::number(qtMajor)), "this Qt is loaded") &&
        ChangeReport();
    return good ? 0 : 1;
}
