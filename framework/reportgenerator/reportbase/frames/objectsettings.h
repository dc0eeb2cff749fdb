#ifndef REPORTGENERATOR_FRAMES_OBJECTSETTINGS_H
#define REPORTGENERATOR_FRAMES_OBJECTSETTINGS_H

#include <QtCore/QAtomicInt>

#include <memory>

namespace REPORTGENERATOR {

class Logger;
class VersionConverterProxy;

/// Validate flag, logger and version converter. Objects with the same settings may point at the same ones,
/// which don't change as long as they do; no settings at all are those of a new object.
struct ObjectSettings
{
    bool validate = true;
    std::shared_ptr<Logger> logger;
    std::shared_ptr<VersionConverterProxy> converter;

    /// How many objects point here; not counted for those that stay as long as the program.
    mutable QAtomicInt references = 0;
    bool isCounted = true;

    static void Retain(const ObjectSettings* settings)
    {
        if (settings && settings->isCounted)
            settings->references.ref();
    }

    static void Release(const ObjectSettings* settings)
    {
        if (settings && settings->isCounted && !settings->references.deref())
            delete settings;
    }

    static std::shared_ptr<Logger> LoggerOf(const ObjectSettings* settings)
    {
        return settings ? settings->logger : nullptr;
    }

    static std::shared_ptr<VersionConverterProxy> ConverterOf(const ObjectSettings* settings)
    {
        return settings ? settings->converter : nullptr;
    }

    /// Settings of that content, retained for the caller; null for those of a new object.
    static const ObjectSettings* Of(bool validate, std::shared_ptr<Logger> logger,
                                    std::shared_ptr<VersionConverterProxy> converter);

    /// The same for an object that is a copy: it counts among those who hold logger and converter.
    static const ObjectSettings* CopyOf(const ObjectSettings* settings)
    {
        return settings ? Of(settings->validate, settings->logger, settings->converter) : nullptr;
    }
};

} // namespace REPORTGENERATOR

#endif
