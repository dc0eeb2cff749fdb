#ifndef REPORTGENERATOR_REPORTBASE_H
#define REPORTGENERATOR_REPORTBASE_H

#include <reportgenerator/reportbase/area.h>
#include <reportgenerator/reportbase/frequency.h>
#include <reportgenerator/reportbase/ifbandwidth.h>
#include <reportgenerator/reportbase/recordobject.h>

namespace REPORTGENERATOR {

struct ReportBaseData;

extern template class REPORTBASE_EXPORT RecordObject<ReportBaseData, SharedRecord<ReportBaseData>>;

/// The root of a report: its frequency, IF bandwidth and area, each with a flag that says whether the report
/// carries it.
///
/// Its element is named "ReportBase" and holds the elements of the members that it carries; it has tagged,
/// compressed and raw forms. It adds no values and no messages of its own. Validate flag and logger are
/// passed on to the members.
///
/// `Check` checks the members that the report carries, in the order frequency, IF bandwidth, area. The raw
/// form is a byte with a bit for each member that the report carries (in this order, from bit 0) and the raw
/// forms of these members.
///
/// Copies are values. Threads: see `IRGObject`.
///
///     REPORTGENERATOR::ReportBase report;
///     report.GetFrequency().SetValue(121500000.0);
///     report.SetArea(area);
///     const QByteArray bytes = report.GetCompressedBinaryRepresentationAsQByteArray(-1);
class REPORTBASE_EXPORT ReportBase : public RecordObject<ReportBaseData, SharedRecord<ReportBaseData>>
{
public:
    /// Carries nothing.
    ReportBase();

    /// Copies members and validate flag; the copy has no logger.
    ReportBase(const ReportBase& other);

    /// Takes the members over. Name, id, validate flag and logger stay.
    ReportBase& operator=(const ReportBase& other);
    ~ReportBase() override;

    /// Compare member by member: a member matches when neither report carries it, or both do and the two are
    /// equal.
    bool operator==(const ReportBase& other) const;
    bool operator!=(const ReportBase& other) const;

    /// Whether any member, carried or not, has data.
    bool AnyData() const;

    /// Always true.
    bool HasData() const override;

    /// The frequency. Asking for the modifiable one makes the report carry it, since it may be filled; ask a
    /// report that isn't const through `std::as_const` to leave it as it is. The setter takes the fields
    /// over, not name and settings.
    const Frequency& GetFrequency() const;
    Frequency& GetFrequency();
    void SetFrequency(const Frequency& frequency);
    bool IsFrequencySet() const;
    void ResetFrequency();
    bool IsValidFrequency(const Frequency& frequency) const;

    /// The IF bandwidth, as the frequency.
    const IFBandwidth& GetIFBandwidth() const;
    IFBandwidth& GetIFBandwidth();
    void SetIFBandwidth(const IFBandwidth& bandwidth);
    bool IsIFBandwidthSet() const;
    void ResetIFBandwidth();
    bool IsValidIFBandwidth(const IFBandwidth& bandwidth) const;

    /// The area, as the frequency.
    const Area& GetArea() const;
    Area& GetArea();
    void SetArea(const Area& area);
    bool IsAreaSet() const;
    void ResetArea();
    bool IsValidArea(const Area& area) const;

    /// Reads the children of the element, told apart by the members' object names. Unknown children are
    /// skipped up to the next tag of the same name; one that holds a child of its own name ends the reading
    /// of the report.
    void ProcessXml(QXmlStreamReader& reader) override;

protected:
    void ProcessXmlStartElement(QXmlStreamReader& reader) override;
};

} // namespace REPORTGENERATOR

#endif
