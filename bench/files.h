#ifndef BENCH_FILES_H
#define BENCH_FILES_H

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <string>

namespace Bench {

/// Where a contender keeps its file. The folder is gone when the program ends.
QString PathFor(const std::string& contender);

void WriteFile(const QString& path, const QByteArray& bytes);
QByteArray ReadFile(const QString& path);

} // namespace Bench

#endif
