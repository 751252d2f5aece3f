#pragma once

#include "VrkExport.h"

#include <QObject>

class CVrkCliMod;

/// Base of the tools that work over a session.
class VRK_EXPORT CVrkToolObject : public QObject
{
    Q_OBJECT

public:
    /// Result of a run that came to its end.
    static constexpr int Done = 2;
    /// Result of a run that broke off.
    static constexpr int Failed = 3;

    explicit CVrkToolObject(CVrkCliMod* module);
    ~CVrkToolObject() override;

    /// Runs the tool, always synchronously; callers pass false. Done when it ran to its end.
    virtual int Perform(bool asynchronous) = 0;

protected:
    CVrkCliMod* m_module;
};
