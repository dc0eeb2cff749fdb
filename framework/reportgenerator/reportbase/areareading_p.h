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
            Outermost().items.BeginList();
        // An override may have taken the record away.
        if (!area.IsInitialized())
            return;
        Outermost().Remember(area);
        if (isOfArea && area.m_record.Get()->coordinates.IsHandedOut())
            Outermost().items.Forget();
    }
    ~Settled()
    {
        if (isOfArea)
            Outermost().items.EndList();
        area.m_settled = outer;
        Forget();
    }
    Settled(const Settled& other) = delete;
    Settled& operator=(const Settled& other) = delete;

    Settled& Outermost() { return outer ? outer->Outermost() : *this; }

    /// From now on, for the record that the area has now.
    void Remember(const Area& reader)
    {
        if (record && &**record == reader.m_record.Get())
            return;
        Forget();
        record.emplace(reader.m_record);
        (**record).coordinates.SetSettled(&items);
    }

    Area& area;
    Settled* outer;
    bool isOfArea;
    bool hasBegun = false; ///< a child has been read

private:
    void Forget()
    {
        if (!record)
            return;
        (**record).coordinates.SetSettled(nullptr);
        record.reset();
    }

    /// Held as long as its list refers to the items.
    std::optional<SharedRecord<AreaData>::Hold> record;
    SettledItems<Coordinate> items;
};

} // namespace REPORTGENERATOR

#endif
