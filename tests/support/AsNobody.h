#pragma once

#include <QtGlobal>
#include <unistd.h>

/// As long as it exists, file permissions apply to this process, even if the tests run as root.
class AsNobody
{
public:
    AsNobody() : m_wasRoot(getuid() == 0)
    {
        if (m_wasRoot && setresuid(nobody, nobody, 0) != 0)
            qFatal("cannot become nobody");
    }
    ~AsNobody()
    {
        if (m_wasRoot && setresuid(0, 0, 0) != 0)
            qFatal("cannot become root again");
    }
    AsNobody(const AsNobody&) = delete;
    AsNobody& operator=(const AsNobody&) = delete;

private:
    static constexpr uid_t nobody = 65534;
    bool m_wasRoot;
};
