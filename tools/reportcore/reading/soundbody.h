#ifndef REPORTCORE_READING_SOUNDBODY_H
#define REPORTCORE_READING_SOUNDBODY_H

#include <QtCore/QByteArray>

namespace ReportCore {

/// What a look at the lengths and numbers of a report's body has shown.
struct BodyLook
{
    bool isSound = false; ///< all lengths, sizes and counts fit what there is
    bool isPlain =
        false; ///< and each element is known and comes once, and its text is read as it stands there
};

/// Root tag, root length and elements, uncompressed. It tells no more than that; a `Walk` tells what is wrong. It comes to
/// the walk's verdict without naming any field: most files are sound, and are read at once when that is known.
BodyLook LookAtBody(const QByteArray& body);

} // namespace ReportCore

#endif
