#pragma once

#include <termios.h>
#include <unistd.h>

/// Hides the input on a terminal as long as it exists. Does nothing if input comes from elsewhere.
class HiddenInput
{
public:
    explicit HiddenInput(int descriptor = STDIN_FILENO) : m_descriptor(descriptor)
    {
        m_isTerminal = tcgetattr(m_descriptor, &m_former) == 0;
        if (!m_isTerminal)
            return;
        termios hidden = m_former;
        hidden.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        hidden.c_lflag |= ECHONL; // the end of the line is shown
        tcsetattr(m_descriptor, TCSADRAIN, &hidden);
    }
    ~HiddenInput()
    {
        if (m_isTerminal)
            tcsetattr(m_descriptor, TCSADRAIN, &m_former);
    }
    HiddenInput(const HiddenInput&) = delete;
    HiddenInput& operator=(const HiddenInput&) = delete;

    bool isTerminal() const { return m_isTerminal; }

private:
    int m_descriptor;
    bool m_isTerminal = false;
    termios m_former = {};
};
