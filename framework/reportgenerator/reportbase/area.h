#ifndef REPORTGENERATOR_AREA_H
#define REPORTGENERATOR_AREA_H

#include <reportgenerator/reportbase/coordinate.h>
#include <reportgenerator/reportbase/recordobject.h>

#include <QtCore/QString>
#include <QtCore/QVector>

namespace REPORTGENERATOR {

struct AreaData;

extern template class REPORTBASE_EXPORT RecordObject<AreaData, SharedRecord<AreaData>>;

/// A named geographic area: an ordered list of coordinates with an optional script identifier.
///
/// Held by value in `ReportBase`. Its element is named "Area", with the attribute "Version", the child
/// elements "Name", one "Coordinate" per point, and "ScriptID" when set; it has tagged, compressed and raw
/// forms. Validate flag and logger are passed on to the coordinates.
///
/// The class has a format version, "1.0". Data of an older version (compared as numbers; no version counts as
/// 0) reset the area when their version is read, so that they start from an empty one.
///
/// `Check` reports name or coordinates that are not set, and a text that is set and null; then the
/// coordinates are checked. Writing XML refuses an incomplete coordinate when validating
/// ("IncompleteDefinitionException"); otherwise it is written after a WARNING. An area whose list is set and
/// empty passes `Check` and writes nothing. Reading goes through the setters. A count of coordinates in
/// tagged data that is greater than what follows ends in the length error, after the coordinates that are
/// there have been read.
///
/// The raw form is a byte with a bit for each field that is set (name, coordinates, script identifier, from
/// bit 0), version, name, the number of coordinates, the raw form of each, and the script identifier when
/// set. Its reader appends to the coordinates that are there and checks that each is complete when
/// validating, and nothing else. When fewer follow than their number says, the first one that is missing
/// counts as an empty one, which is refused when validating; otherwise it is the last one, and the stream's
/// status is `ReadPastEnd`.
///
/// Copies are values. Threads: see `IRGObject`.
///
///     REPORTGENERATOR::Area area;
///     area.SetName(QStringLiteral("Lake region"));
///     area.AppendCoordinate(point);
///     const QByteArray bytes = area.GetBinaryRepresentationAsQByteArray();
class REPORTBASE_EXPORT Area : public RecordObject<AreaData, SharedRecord<AreaData>>
{
public:
    /// Nothing set.
    Area();

    /// Copies fields and validate flag; the copy has no logger.
    Area(const Area& other);

    /// Takes the fields over. Name, id, validate flag and logger stay.
    Area& operator=(const Area& other);
    ~Area() override;

    /// Compare version, name, script identifier and coordinates; the version last read doesn't count.
    ///
    /// When the other area's coordinates are not set, this area's must be none, set or not: the flag of the
    /// left side is not asked.
    bool operator==(const Area& other) const;
    bool operator!=(const Area& other) const;

    /// Whether there is a name, a coordinate or a script identifier. Looks at the values, not at the flags.
    bool AnyData() const;

    /// Whether there are a name and at least one coordinate.
    bool HasData() const override;

    /// The name; a null text when not set, whereas an empty text is a name.
    ///
    /// The setter refuses a null text when validating: it throws `RGException` named "OutOfRangeException"
    /// ("Area: Please set Name properly (origin: Setter).") and stores nothing. When not validating it logs
    /// the same as a WARNING, stores the text and counts it as set.
    QString GetName() const;
    void SetName(QString name);
    bool IsNameSet() const;
    void ResetName();
    bool IsValidName(const QString& name) const;
    QString GetDefaultName() const;

    /// The coordinates in their order. The modifiable list counts as set from the moment it is asked for,
    /// since it may be filled; ask an area that isn't const through `std::as_const` to leave it as it is.
    const QVector<Coordinate>& GetCoordinate() const;
    QVector<Coordinate>& GetCoordinate();

    /// Replaces the list by copies of the elements, which are not checked.
    void SetCoordinate(const QVector<Coordinate>& coordinates);

    /// Appends a copy of the coordinate, which must have both values; their ranges are not tested.
    ///
    /// An incomplete one is refused when validating: `RGException` named "IncompleteDefinitionException"
    /// ("Area: Tried to append not completely defined or invalid item Coordinate."). When not validating it
    /// is appended and the same logged as a WARNING.
    void AppendCoordinate(const Coordinate& item);

    /// Whether the list counts as set, which an empty one may. `ResetCoordinate` unsets it.
    bool IsCoordinateSet() const;
    void ResetCoordinate();

    /// Always true.
    bool IsValidCoordinate(const QVector<Coordinate>& coordinates) const;
    bool IsValidCoordinate(const Coordinate& coordinate) const;

    /// The script identifier, optional; otherwise as the name.
    QString GetScriptID() const;
    void SetScriptID(QString scriptID);
    bool IsScriptIDSet() const;
    void ResetScriptID();
    bool IsValidScriptID(const QString& scriptID) const;
    QString GetDefaultScriptID() const;

    /// The format version of this class, "1.0".
    const QString& GetVersion() const override;

    /// The version found in the data last read, empty before.
    QString GetInitialVersionLoaded() const;

    /// Reads the children of the element, through the setters. Unknown children are skipped in data of an
    /// older version. Otherwise they are an error when validating ("InvalidXmlException", "Unknown Tag '%1'
    /// in '%2'.") and a WARNING when not: the children of the unknown element are then read as the area's
    /// own, and its end tag ends the area, whose further children are left to whoever holds it.
    void ProcessXml(QXmlStreamReader& reader) override;

protected:
    void ProcessXmlStartElement(QXmlStreamReader& reader) override;

private:
    friend class ReportBase;

    struct Settled;

    Q_DECL_HIDDEN void SettleCoordinates() const;

    /// Of the reading that is going on, null while there is none.
    Settled* m_settled = nullptr;
};

} // namespace REPORTGENERATOR

#endif
