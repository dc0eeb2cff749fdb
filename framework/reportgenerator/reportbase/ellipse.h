#ifndef REPORTGENERATOR_ELLIPSE_H
#define REPORTGENERATOR_ELLIPSE_H

#include <reportgenerator/reportbase/irgobject.h>

namespace REPORTGENERATOR {

/// An ellipse by its two radii and its rotation.
///
/// Its XML element is named "Ellipse", with the child elements "MinRadius", "MaxRadius" and "Rotation", all
/// with two decimals. There is no binary form. -111111.11 stands for "not set"; any other number, NaN
/// included, may be stored. The units are the client's; no relation between the values is enforced. A copy is
/// complete and shares the logger. Threads: see `IRGObject`.
///
///     REPORTGENERATOR::Ellipse ellipse;
///     ellipse.SetMinRadius(100.0);
///     ellipse.SetMaxRadius(250.5);
///     ellipse.SetRotation(30.0);
///     const QString xml = ellipse.GetXmlString();
class REPORTBASE_EXPORT Ellipse : public IRGObject
{
public:
    /// Nothing set.
    Ellipse();

    /// Copies everything, base included.
    Ellipse(const Ellipse& other);
    Ellipse& operator=(const Ellipse& other);
    ~Ellipse() override;

    /// Compare the three values, set or not; a NaN differs from everything.
    bool operator==(const Ellipse& other) const;
    bool operator!=(const Ellipse& other) const;

    /// The one radius, meant to be the smaller; it may exceed the other and may be negative.
    double GetMinRadius() const;
    void SetMinRadius(double radius);

    /// The other radius.
    double GetMaxRadius() const;
    void SetMaxRadius(double radius);

    /// By how much the ellipse is turned; neither range nor direction is fixed.
    double GetRotation() const;
    void SetRotation(double rotation);

    /// Whether any of the three is set.
    bool AnyData() const;

    /// Whether all three are set.
    bool HasData() const override;

    /// Unsets all three.
    void Reset() override;

    using IRGObject::Check;

    /// An empty ellipse passes. Throws `RGException`, "Ellipse: Please set MinRadius!" (or MaxRadius,
    /// Rotation), for the first that is not set.
    void Check() const override;

    /// Writes the element; nothing unless all three are set. Throws nothing.
    void GetXml(QXmlStreamWriter& writer) const override;

protected:
    /// Throws `RGException` "Unknown Tag '%1' in '%2'." for other children; a text that is not a number reads
    /// as 0.
    void ProcessXmlStartElement(QXmlStreamReader& reader) override;

private:
    struct Q_DECL_HIDDEN Schema;

    double m_minRadius;
    double m_maxRadius;
    double m_rotation;
};

} // namespace REPORTGENERATOR

#endif
