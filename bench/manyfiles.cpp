// What reading and checking files costs the library alone: one thread, each file once, in a loop. Prints it as JSON.
//
//     reportbase_manyfiles ROUNDS FILE...
//
// The files are XML or representations. A name "@LIST" stands for the names in a file, one a line.

#include "files.h"

#include <reportgenerator/reportbase/reportbase.h>
#include <reportgenerator/reportbase/reportexception.h>

#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <exception>
#include <stdexcept>

namespace Bench {

namespace {

using REPORTGENERATOR::ReportBase;

QStringList Names(int argc, char** argv)
{
    QStringList names;
    for (int i = 2; i < argc; ++i) {
        const QString name = QFile::decodeName(argv[i]);
        if (!name.startsWith(QLatin1Char('@'))) {
            names << name;
            continue;
        }
        for (const QByteArray& line : ReadFile(name.mid(1)).split('\n')) {
            if (!line.isEmpty())
                names << QFile::decodeName(line);
        }
    }
    return names;
}

void LoadAndCheck(const QString& name)
{
    QByteArray bytes = ReadFile(name);
    ReportBase report;
    const bool isXml = bytes.startsWith('<');
    const bool isLoaded =
        isXml ? report.SetXmlString(QString::fromUtf8(bytes), false) : report.SetBinaryRepresentation(bytes);
    if (!isLoaded)
        throw std::runtime_error("no report in " + name.toStdString());
    report.Check(true);
}

void Measure(int rounds, const QStringList& names)
{
    for (int round = 0; round < rounds; ++round) {
        QElapsedTimer wall;
        wall.start();
        const std::clock_t begin = std::clock();
        for (const QString& name : names)
            LoadAndCheck(name);
        const double seconds = static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
        std::printf("{\"files\": %lld, \"cpu\": %.6f, \"wall\": %.6f}\n",
                    static_cast<long long>(names.size()), seconds,
                    static_cast<double>(wall.nsecsElapsed()) / 1e9);
    }
}

} // namespace

} // namespace Bench

int main(int argc, char** argv)
{
    try {
        if (argc < 3)
            throw std::runtime_error("ROUNDS FILE...");
        Bench::Measure(std::atoi(argv[1]), Bench::Names(argc, argv));
    } catch (const std::exception& exception) {
        std::fprintf(stderr, "manyfiles: %s\n", exception.what());
        return 1;
    } catch (const ReportException& exception) {
        std::fprintf(stderr, "manyfiles: %s\n", exception.GetErrorText().toUtf8().constData());
        return 1;
    }
    return 0;
}
