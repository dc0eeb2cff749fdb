#ifndef REPORTGENERATOR_MEASUREMENTTIME_H
#define REPORTGENERATOR_MEASUREMENTTIME_H

#include <reportgenerator/reportbase/double.h>

#include <QtCore/QStringList>

namespace REPORTGENERATOR {

/// How long a measurement runs and in which mode, continuously or periodically.
///
/// Its XML element is named "MeasurementTime" and holds the element of the time, of the same name (see
/// `Double`), and the child element "MeasurementMode". There is no binary form. The names of the modes can be
/// replaced. The validate flag and the logger are not passed on to the time. A copy is complete and shares
/// the logger. Threads: see `IRGObject`.
///
///     REPORTGENERATOR::MeasurementTime time;
///     time.SetMeasurementMode(REPORTGENERATOR::MeasurementTime::Periodic);
///     time.GetMeasurementTime().SetValue(2.5);
class REPORTBASE_EXPORT MeasurementTime : public IRGObject
{
public:
    /// The mode of a measurement; any other number is no mode.
    enum MeasurementModeType : int
    {
        Continuous = 0, ///< without a break
        Periodic = 1    ///< again and again
    };

    /// No mode and no time.
    MeasurementTime();

    /// Copies everything, base included.
    MeasurementTime(const MeasurementTime& other);
    MeasurementTime& operator=(const MeasurementTime& other);
    ~MeasurementTime() override;

    /// Compare mode, time (as `Double` does: numbers and unit) and the names of the modes.
    bool operator==(const MeasurementTime& other) const;
    bool operator!=(const MeasurementTime& other) const;

    /// The mode, -1 when not set. The setter throws `RGException` "'%1': Invalid MeasurementModeType '%2'."
    /// for numbers that are no mode and leaves the object as it was.
    const MeasurementModeType& GetMeasurementMode() const;
    void SetMeasurementMode(const MeasurementModeType& mode);

    /// Whether the number is 0 or 1.
    bool IsValidMeasurementModeType(const MeasurementModeType& mode) const;

    /// -1, the mode that is not set.
    static MeasurementModeType GetInvalidMeasurementModeType();

    /// The time, with its unit as text. Its name is the name of its element, "MeasurementTime" until another
    /// is set or assigned.
    const Double& GetMeasurementTime() const;
    Double& GetMeasurementTime();
    void SetMeasurementTime(const Double& time);

    /// The plain number of the time, -111111.11 when not set.
    double GetMeasurementTimeValue() const;

    /// Replaces the names "Continuous" and "Periodic" in this object. Throws `RGException` unless there are
    /// two ("'%1': List has the wrong length! It should be '%2'.") and keeps the old ones.
    void SetMeasurementModeStringList(const QStringList& names);

    /// The mode with exactly this name, -1 when there is none.
    MeasurementModeType NameToMeasurementModeType(const QString& name) const;

    /// Empty for every number: the modes themselves are not looked up, and other numbers have no name.
    ///
    /// So the element "MeasurementMode" is written empty, and reading it back throws the invalid-mode
    /// message. This is part of the form.
    QString MeasurementModeTypeToName(const MeasurementModeType& mode) const;

    /// Whether the mode or anything of the time is set.
    bool AnyData() const;

    /// Whether the mode and the time are set.
    bool HasData() const override;

    /// Unsets mode and time and restores the time's name; the names of the modes stay.
    void Reset() override;

    using IRGObject::Check;

    /// Throws `RGException` "MeasurementTime: Please set MeasurementMode!" without a mode; otherwise checks
    /// the time if it has any data.
    void Check() const override;

    /// Writes the element; nothing unless `HasData`. Throws nothing.
    void GetXml(QXmlStreamWriter& writer) const override;

protected:
    /// Throws `RGException`: "Unknown Tag '%1' in '%2'." for other children, the invalid-mode message with -1
    /// for an unknown name of a mode.
    void ProcessXmlStartElement(QXmlStreamReader& reader) override;

private:
    QStringList m_modeNames;
    MeasurementModeType m_mode;
    Double m_time;
};

} // namespace REPORTGENERATOR

#endif
