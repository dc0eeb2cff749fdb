#ifndef BENCH_FILES_H
#define BENCH_FILES_H

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <string>

namespace Bench {

/// Where a contender writes its report of so many coordinates. The folder is gone when the program ends.
QString PathFor(const std::string& contender, qsizetype coordinates);

void WriteFile(const QString& path, const QByteArray& bytes);
QByteArray ReadFile(const QString& path);

} // namespace Bench

#endif
