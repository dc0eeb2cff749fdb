// Reads a column of reports by the library alone, as a yardstick for what stands on it.
//
//     reportbase_reading FORM FILE
//
// The file holds the reports, each behind its size in 4 bytes, least significant first. For each line of standard input all of them are
// read once, and the seconds that it took are printed: of the clock and of the processor.

#include <reportgenerator/reportbase/reportbase.h>

#include <QtCore/QByteArray>
#include <QtCore/QFile>
#include <QtCore/QString>
#include <QtCore/QtEndian>

#include <chrono>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <iostream>
#include <string>
#include <vector>

namespace {

using REPORTGENERATOR::ReportBase;

std::vector<QByteArray> ReportsIn(const char* path)
{
    QFile file(QString::fromLocal8Bit(path));
    file.open(QIODevice::ReadOnly);
    std::vector<QByteArray> reports;
    for (QByteArray head = file.read(4); head.size() == 4; head = file.read(4))
        reports.push_back(file.read(qFromLittleEndian<qint32>(head.constData())));
    return reports;
}

double ProcessorSeconds()
{
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

/// Returns how many there were.
std::size_t ReadAll(const std::vector<QByteArray>& reports, bool isXml)
{
    std::size_t count = 0;
    for (const QByteArray& bytes : reports) {
        ReportBase report;
        if (isXml) {
            if (report.SetXmlString(QString::fromUtf8(bytes), false))
                ++count;
        } else {
            QByteArray representation = bytes;
            if (report.SetBinaryRepresentation(representation))
                ++count;
        }
    }
    return count;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3)
        return 1;
    const bool isXml = std::strcmp(argv[1], "xml") == 0;
    const std::vector<QByteArray> reports = ReportsIn(argv[2]);
    for (std::string line; std::getline(std::cin, line);) {
        const auto begin = std::chrono::steady_clock::now();
        const double processorBegin = ProcessorSeconds();
        if (ReadAll(reports, isXml) != reports.size())
            return 1;
        const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begin;
        std::printf("%.6f %.6f\n", taken.count(), ProcessorSeconds() - processorBegin);
        std::fflush(stdout);
    }
    return 0;
}
