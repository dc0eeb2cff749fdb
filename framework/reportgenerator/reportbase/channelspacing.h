#ifndef REPORTGENERATOR_CHANNELSPACING_H
#define REPORTGENERATOR_CHANNELSPACING_H

#include <reportgenerator/reportbase/irgobject.h>

#include <QtCore/QString>
#include <QtCore/QVector>

namespace REPORTGENERATOR {

/// The spacing of a channel raster: a list of spacings, whether the channels lie at the same distance, and an
/// optional display text.
///
/// Its XML element is named "ChannelSpacing", with the child elements "Visual" when not empty,
/// "Samedistance", and one "Value" per spacing with two decimals. There is no binary form. Set means not
/// empty; the unit is the client's. A copy is complete and shares the logger. Threads: see `IRGObject`.
///
///     REPORTGENERATOR::ChannelSpacing raster;
///     raster.SetSameDistance(true);
///     raster.SetValues({8333.33});
///     const QString xml = raster.GetXmlString();
class REPORTBASE_EXPORT ChannelSpacing : public IRGObject
{
public:
    /// Nothing set.
    ChannelSpacing();

    /// Copies everything, base included.
    ChannelSpacing(const ChannelSpacing& other);
    ChannelSpacing& operator=(const ChannelSpacing& other);
    ~ChannelSpacing() override;

    /// Compare display text, `IsSameDistance` and the spacings one by one: "false" and unset are the same,
    /// and a NaN differs from everything.
    bool operator==(const ChannelSpacing& other) const;
    bool operator!=(const ChannelSpacing& other) const;

    /// The text to show for the raster, empty when there is none.
    const QString& GetVisual() const;
    void SetVisual(const QString& visual);

    /// Whether the channels lie at the same distance. Set as "true" or "false"; any text is kept as it was
    /// read, and only "true" in lower case means true.
    bool IsSameDistance() const;
    void SetSameDistance(bool sameDistance);

    /// Whether that has been set, to whatever text.
    bool IsValidSameDistance() const;

    /// The spacings in their order, each any number. Setting replaces them all; reading appends.
    const QVector<double>& GetValues() const;
    void SetValues(const QVector<double>& values);

    /// Whether "same distance" or a spacing is set; the display text doesn't count.
    bool AnyData() const;

    /// Whether "same distance" and at least one spacing are set.
    bool HasData() const override;

    /// Clears both texts to null and removes the spacings.
    void Reset() override;

    using IRGObject::Check;

    /// An empty object passes. Throws `RGException` "ChannelSpacing: Please set Samedistance!" for spacings
    /// without it, and "ChannelSpacing: Please set ChannelSpacing!" for it without spacings.
    void Check() const override;

    /// Writes the element; nothing unless `HasData`. Throws nothing.
    void GetXml(QXmlStreamWriter& writer) const override;

protected:
    /// Throws `RGException` "Unknown Tag '%1' in '%2'." for other children; a spacing that is not a number
    /// reads as 0.
    void ProcessXmlStartElement(QXmlStreamReader& reader) override;

private:
    struct Q_DECL_HIDDEN Schema;

    QString m_visual;
    QString m_sameDistance;
    QVector<double> m_values;
};

} // namespace REPORTGENERATOR

#endif
