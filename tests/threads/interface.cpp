#include "threads/interface.h"

#include <QtCore/QFile>

#include <algorithm>

namespace Threads {

namespace {

const std::set<std::string> CALLED_BY_THE_CLASS = {"ConstNoClearReset", "GetTextValue", "InitData",
                                                   "PrepareToWrite",    "ReadXmlUntil", "ReapplySettings"};

const std::set<std::string> CHANGES = {"ResetLogger"};

/// "function REPORTGENERATOR::Area::GetName() const -> QString" is GetName of Area.
std::string NameOf(const std::string& line, const std::string& className)
{
    const std::string begin = "function REPORTGENERATOR::" + className + "::";
    const auto end = line.find('(', begin.size());
    if (line.rfind(begin, 0) != 0 || line.find(") const") == std::string::npos)
        return {};
    return line.substr(begin.size(), end - begin.size());
}

} // namespace

std::set<std::string> ConstOperations(const std::vector<std::string>& classes)
{
    std::set<std::string> names;
    QFile interface(QStringLiteral(REPORTGENERATOR_TEST_INTERFACE));
    EXPECT_TRUE(interface.open(QIODevice::ReadOnly));
    for (const QByteArray& line : interface.readAll().split('\n')) {
        for (const std::string& className : classes) {
            const std::string name = NameOf(line.toStdString(), className);
            if (!name.empty() && CALLED_BY_THE_CLASS.count(name) + CHANGES.count(name) == 0)
                names.insert(name);
        }
    }
    return names;
}

} // namespace Threads
