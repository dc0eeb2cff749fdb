#ifndef TESTS_REPORTTOOL_TERMINAL_H
#define TESTS_REPORTTOOL_TERMINAL_H

// A terminal that programs can be started on.

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QtGlobal>

#ifdef Q_OS_UNIX

#    include <gtest/gtest.h>

#    include <cstdlib>
#    include <fcntl.h>
#    include <poll.h>
#    include <termios.h>
#    include <unistd.h>

namespace ToolTest {

class Terminal
{
public:
    Terminal() : m_screen(posix_openpt(O_RDWR | O_NOCTTY))
    {
        EXPECT_EQ(grantpt(m_screen), 0);
        EXPECT_EQ(unlockpt(m_screen), 0);
        m_name = QString::fromLatin1(ptsname(m_screen));
        // Held open, so that what was written stays when the program has ended.
        m_keeper = open(m_name.toLatin1().constData(), O_RDWR | O_NOCTTY);
        EXPECT_GE(m_keeper, 0);
        // Bytes arrive as they were written.
        termios modes = {};
        EXPECT_EQ(tcgetattr(m_keeper, &modes), 0);
        cfmakeraw(&modes);
        EXPECT_EQ(tcsetattr(m_keeper, TCSANOW, &modes), 0);
    }

    ~Terminal()
    {
        close(m_keeper);
        close(m_screen);
    }

    Terminal(const Terminal& other) = delete;
    Terminal& operator=(const Terminal& other) = delete;

    const QString& Name() const { return m_name; }

    /// Waits until this is shown, and returns all that is.
    const QByteArray& ShownUntil(const char* text)
    {
        while (!m_shown.contains(text) && HasMore(PATIENCE_IN_MS))
            Take();
        EXPECT_TRUE(m_shown.contains(text)) << m_shown.toStdString();
        return m_shown;
    }

    /// What has been shown by programs that have ended.
    const QByteArray& Shown()
    {
        while (HasMore(0))
            Take();
        return m_shown;
    }

private:
    static constexpr int PATIENCE_IN_MS = 60 * 1000;

    bool HasMore(int milliseconds) const
    {
        pollfd screen = {m_screen, POLLIN, 0};
        return poll(&screen, 1, milliseconds) > 0;
    }

    void Take()
    {
        char buffer[4096];
        const auto count = read(m_screen, buffer, sizeof buffer);
        if (count > 0)
            m_shown.append(buffer, static_cast<int>(count));
    }

    int m_screen = -1;
    int m_keeper = -1;
    QString m_name;
    QByteArray m_shown;
};

} // namespace ToolTest

#endif

#endif
