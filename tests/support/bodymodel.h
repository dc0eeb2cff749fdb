#ifndef TESTS_SUPPORT_BODYMODEL_H
#define TESTS_SUPPORT_BODYMODEL_H

// A reader of its own: what reading a plain representation of a frequency, an IF bandwidth or a coordinate
// gives, whatever the bytes are, without QDataStream and without the library.
//
//     Prediction prediction = PredictedFor(QStringLiteral("coordinate"), bytes);
//     EXPECT_EQ(object.SetBinaryRepresentation(bytes), prediction.isAccepted);

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <string>

namespace Support {

/// What reading ends in.
struct Prediction
{
    bool isAccepted = false;
    bool hasLengthError = false;
    std::string description; ///< what the object holds then
};

/// `folder` is that of the class in tests/vectors.
Prediction PredictedFor(const QString& folder, const QByteArray& bytes);

} // namespace Support

#endif
