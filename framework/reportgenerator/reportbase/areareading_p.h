#ifndef REPORTGENERATOR_AREAREADING_P_H
#define REPORTGENERATOR_AREAREADING_P_H

#include <reportgenerator/reportbase/area.h>
#include <reportgenerator/reportbase/records/recordaccess.h>
#include <reportgenerator/reportbase/schema/areaschema.h>

#include <optional>

namespace REPORTGENERATOR {

/// A reading of an area, or of a report for the one that it holds. The outermost one remembers to which coordinates validate
/// flag and logger have been passed on. Nothing is remembered from one reading to the next: the coordinates can be given
/// others meanwhile.
struct Area::Settled
{
    enum class Of : int
    {
        Area,
        Report
    };

    Settled(Area& reader, Of of) : area(reader), outer(reader.m_settled), isOfArea(of == Of::Area)
    {
        area.m_settled = this;
        if (isOfArea)
            Outermost().m_items.BeginList();
        // An override may have taken the record away.
        if (!area.IsInitialized())
            return;
        Outermost().Remember(area);
        if (isOfArea && area.m_record.Get()->coordinates.IsHandedOut())
            Outermost().m_items.Forget();
    }
    ~Settled()
    {
        if (isOfArea)
            Outermost().m_items.EndList();
        area.m_settled = outer;
        Forget();
    }
    Settled(const Settled& other) = delete;
    Settled& operator=(const Settled& other) = delete;

    Settled& Outermost() { return outer ? outer->Outermost() : *this; }

    /// From now on, for the record that the area has now.
    void Remember(const Area& reader)
    {
        if (m_held && &**m_held == reader.m_record.Get())
            return;
        Forget();
        m_held.emplace(reader.m_record);
        (**m_held).coordinates.SetSettled(&m_items);
    }

    Area& area;
    Settled* outer;
    bool isOfArea;
    bool hasBegun = false; ///< a child has been read

private:
    void Forget()
    {
        if (!m_held)
            return;
        (**m_held).coordinates.SetSettled(nullptr);
        m_held.reset();
    }

    /// Held as long as its list refers to the items.
    std::optional<SharedRecord<AreaData>::Hold> m_held;
    SettledItems<Coordinate> m_items;
};

} // namespace REPORTGENERATOR

#endif
