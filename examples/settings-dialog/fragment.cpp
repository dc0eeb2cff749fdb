#include "fragment.h"

#include <QtCore/QXmlStreamReader>

#include <vector>

namespace {

/// An element that is not an object's, but may hold some.
struct Container
{
    QString name;
    int ignoredBefore = 0;
    bool holdsObject = false;
};

} // namespace

Leftovers FindLeftovers(const QString& fragment, QStringList objectNames)
{
    // A fragment may be several elements, a document is one.
    QXmlStreamReader reader(QStringLiteral("<Fragment>") + fragment + QStringLiteral("</Fragment>"));
    Leftovers leftovers;
    std::vector<Container> open;
    while (!reader.atEnd()) {
        const auto token = reader.readNext();
        if (token == QXmlStreamReader::StartElement) {
            const QString name = reader.name().toString();
            if (objectNames.removeOne(name)) {
                open.back().holdsObject = true;
                reader.skipCurrentElement();
            } else {
                open.push_back({name, static_cast<int>(leftovers.ignored.size()), false});
            }
        } else if (token == QXmlStreamReader::EndElement) {
            const Container closed = open.back();
            open.pop_back();
            if (open.empty())
                continue;
            if (closed.holdsObject) {
                open.back().holdsObject = true;
            } else {
                // Its name stands for all that is in it.
                leftovers.ignored = leftovers.ignored.mid(0, closed.ignoredBefore);
                leftovers.ignored.append(closed.name);
            }
        }
    }
    if (reader.hasError())
        leftovers.problem = reader.errorString();
    return leftovers;
}
