#include <reportgenerator/reportbase/frames/objectsettings.h>

#include <utility>

namespace REPORTGENERATOR {

const ObjectSettings* ObjectSettings::Of(bool validate, std::shared_ptr<Logger> logger,
                                         std::shared_ptr<VersionConverterProxy> converter)
{
    if (!logger && !converter) {
        static const ObjectSettings notValidating{false, nullptr, nullptr, 0, false};
        return validate ? nullptr : &notValidating;
    }
    return new ObjectSettings{validate, std::move(logger), std::move(converter), 1, true};
}

} // namespace REPORTGENERATOR
