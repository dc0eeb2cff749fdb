#include "messages.h"

#include "values.h"

#include <reportgenerator/reportbase/logger.h>
#include <reportgenerator/reportbase/reportexception.h>

#include <pybind11/pybind11.h>

#include <utility>
#include <vector>

namespace Python {

namespace py = pybind11;

using REPORTGENERATOR::LogLevel;

namespace {

py::object PythonLogger()
{
    return py::module_::import("logging").attr("getLogger")("reportgenerator");
}

/// The numbers of Python's module logging.
int LevelInPython(LogLevel level)
{
    switch (level) {
    case LogLevel::ERROR:
        return 40;
    case LogLevel::WARNING:
        return 30;
    case LogLevel::INFO:
        break;
    }
    return 20;
}

} // namespace

/// Keeps messages that end nothing.
class Collector : public REPORTGENERATOR::Logger
{
public:
    explicit Collector(LogLevel level) : Logger(level) {}

    using Logger::Trace;

    void Trace(LogLevel level, const QString& text, bool fatal) override
    {
        if (!fatal && level <= GetLogLevel())
            m_messages.emplace_back(level, text);
    }
    bool HasErrors() const override { return false; }
    void Reset(bool /*clearEntries*/) override { m_messages.clear(); }

    std::vector<std::pair<LogLevel, QString>> Take() { return std::exchange(m_messages, {}); }

private:
    std::vector<std::pair<LogLevel, QString>> m_messages;
};

std::optional<LogLevel> WantedLevel()
{
    const py::object logger = PythonLogger();
    for (const LogLevel level : {LogLevel::INFO, LogLevel::WARNING, LogLevel::ERROR}) {
        if (logger.attr("isEnabledFor")(LevelInPython(level)).cast<bool>())
            return level;
    }
    return std::nullopt;
}

Listening::Listening(const REPORTGENERATOR::IRGObject& object, std::optional<LogLevel> level)
    : m_object(&object)
{
    if (!level)
        return;
    m_collector = std::make_shared<Collector>(*level);
    m_object->SetLogger(m_collector);
}

Listening::~Listening()
{
    Leave();
}

void Listening::Leave()
{
    if (m_collector && m_object)
        m_object->SetLogger(nullptr);
    m_object = nullptr;
}

void Listening::HandOn()
{
    Leave();
    if (!m_collector)
        return;
    const auto messages = m_collector->Take();
    if (messages.empty())
        return;
    const py::object log = PythonLogger().attr("log");
    for (const auto& [level, text] : messages)
        log(LevelInPython(level), "%s", ToPython(text));
}

} // namespace Python
