#ifndef SETTINGS_DIALOG_SETTING_H
#define SETTINGS_DIALOG_SETTING_H

#include <reportgenerator/reportbase/rgexception.h>

#include <QtCore/QString>

/// Remembers why a settings object has not taken what it was offered: the notifier passes such an object
/// over.
class TakingSettings
{
public:
    /// What was wrong with the settings offered last, empty when nothing was.
    const QString& GetProblem() const { return m_problem; }
    void ClearProblem() { m_problem.clear(); }

protected:
    TakingSettings() = default;
    ~TakingSettings() = default;
    void SetProblem(const QString& problem) { m_problem = problem; }

private:
    QString m_problem;
};

/// A settings object with an id of its own. The plain classes all have the id of `AnyType`, and a notifier
/// files only one object under an id.
///
/// What it cannot read whole it does not keep in part, and it tells its logger why.
template <class Object>
class Setting final : public Object, public TakingSettings
{
public:
    explicit Setting(long long id) { this->SetObjectId(id); }

    bool SetXmlString(const QString& xml, bool checkRoot) override
    {
        const auto logger = this->GetLogger();
        if (logger)
            logger->Reset(false);
        try {
            return Object::SetXmlString(xml, checkRoot);
        } catch (const RGException& exception) {
            SetProblem(exception.GetErrorText());
            // Malformed XML is in the log already; what the classes check themselves is not.
            if (logger && !logger->HasErrors())
                this->Trace(REPORTGENERATOR::LogLevel::ERROR, exception);
            this->Reset();
            throw;
        }
    }
};

#endif
