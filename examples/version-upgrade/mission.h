#ifndef VERSION_UPGRADE_MISSION_H
#define VERSION_UPGRADE_MISSION_H

#include <reportgenerator/reportbase/irgobject.h>

/// What the versions of a mission have in common: the element "Mission" with the attribute "Version" and the
/// child element "Title".
class Mission : public REPORTGENERATOR::IRGObject
{
public:
    QString GetTitle() const;
    void SetTitle(const QString& title);

    void Reset() override;
    using IRGObject::Check;
    void Check() const override;
    void GetXml(QXmlStreamWriter& writer) const override;
    const QString& GetVersion() const override;

protected:
    explicit Mission(const QString& version);

    /// Stores the text of a child element; false when the version knows no child of that name.
    virtual bool ReadChild(const QString& name, const QString& text) = 0;
    virtual void WriteChildren(QXmlStreamWriter& writer) const = 0;

    void ProcessXmlStartElement(QXmlStreamReader& reader) override;

private:
    QString m_version;
    QString m_title;
};

/// Version 1.0: the frequency is in kilohertz.
class Mission10 : public Mission
{
public:
    Mission10();

    double GetFrequencyKilohertz() const;
    void SetFrequencyKilohertz(double frequency);

    bool HasData() const override;
    void Reset() override;

protected:
    bool ReadChild(const QString& name, const QString& text) override;
    void WriteChildren(QXmlStreamWriter& writer) const override;

private:
    double m_frequency;
};

/// Version 2.0: the frequency is in hertz, and missions have a priority from 1, the most urgent, to 9.
class Mission20 : public Mission
{
public:
    Mission20();

    double GetFrequencyHertz() const;
    void SetFrequencyHertz(double frequency);

    int GetPriority() const;
    void SetPriority(int priority);

    bool HasData() const override;
    void Reset() override;

protected:
    bool ReadChild(const QString& name, const QString& text) override;
    void WriteChildren(QXmlStreamWriter& writer) const override;

private:
    double m_frequency;
    int m_priority;
};

#endif
