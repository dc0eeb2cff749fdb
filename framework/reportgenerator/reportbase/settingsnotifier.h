#ifndef REPORTGENERATOR_SETTINGSNOTIFIER_H
#define REPORTGENERATOR_SETTINGSNOTIFIER_H

#include <reportgenerator/reportbase/registercenter.h>

#include <QtCore/QMap>
#include <QtCore/QObject>

namespace REPORTGENERATOR {

/// Distributes XML settings to the settings objects of an application.
///
/// Each registered object is offered the whole text and takes what belongs to it; for each that took
/// something and has data, the notifier emits two signals. The notifier owns the centers, and through them
/// the objects. It lives in the thread that created it and has no lock. Its signals may be connected across
/// threads, but what they point to is used in the notifier's thread only: a receiver elsewhere needs a copy.
///
///     REPORTGENERATOR::SettingsNotifier notifier;
///     notifier.NotifyOnChanged(center);
///     notifier.SetSettings(xml, false);
class REPORTBASE_EXPORT SettingsNotifier : public QObject
{
    Q_OBJECT

public:
    SettingsNotifier();

    /// Deletes all centers and their objects.
    ~SettingsNotifier() override;

    /// Registers a center under `RegisterCenter::GetInterfaceId`, the id of its object, and takes it over.
    /// Throws `InterfaceAlreadyRegisteredException` ("Interface %1 already registered in SettingsNotifier",
    /// with the name of the object) when the id is taken; the center then stays the caller's.
    ///
    /// Objects of the plain classes all have the id of `AnyType`, and those of a class with a record all have
    /// that of their class. To register two of them, derive from the class and give each object an id of its
    /// own in the constructor (`SetObjectId`, `SetObjectType`).
    void NotifyOnChanged(RegisterCenter* center);

    /// The center of the object with this id, null when there is none. The number of a kind is the id of
    /// objects that have no other one.
    RegisterCenter* GetCenter(long long id) const;
    RegisterCenter* GetCenter(ObjectTypes type) const;

    /// Resets every registered object and offers it the settings: one element, or several one after the
    /// other. `checkRoot` goes to `IRGObject::SetXmlString`. Emits both signals for each object that took its
    /// settings and has data.
    ///
    /// A text with an XML declaration is taken by nobody. One element that is self-closing, or has a comment
    /// before it or a line break behind it, counts as several: these get a root element of their own, which
    /// `checkRoot` refuses.
    ///
    /// An object that throws `RGException` is passed over, with a trace when `ErrorHandler` asks for traces;
    /// so, without a trace, is a center without an object and one that a receiver of a signal has
    /// unregistered meanwhile. Throws `InvalidXmlException` "Invalid XML-Fragment!" when no object took
    /// anything; all of them have been reset by then.
    void SetSettings(const QString& xml, bool checkRoot);

Q_SIGNALS:
    /// The object has taken new settings.
    void SettingsChanged(REPORTGENERATOR::IRGObject* object);

    /// The object of the center has taken new settings.
    void SettingsChanged(REPORTGENERATOR::RegisterCenter* center);

protected:
    /// Deletes the center under `id` and its object; does nothing when there is none.
    virtual void UnRegister(long long id);

private:
    Q_DISABLE_COPY(SettingsNotifier)

    Q_DECL_HIDDEN static bool CheckXmlSyntax(const QString& text);
    Q_DECL_HIDDEN static QString GetFirstTagName(const QString& text);
    Q_DECL_HIDDEN static QString GetLastTagName(const QString& text);
    Q_DECL_HIDDEN static void Reverse(QString& text);
    Q_DECL_HIDDEN static QString AddDummyRoot(const QString& text);

    QMap<long long, RegisterCenter*> m_centers;
};

} // namespace REPORTGENERATOR

#endif
