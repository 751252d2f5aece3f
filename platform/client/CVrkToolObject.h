#pragma once

#include "VrkExport.h"

#include <QObject>

class CVrkCliMod;

/// Base of the tools that use a session.
class VRK_EXPORT CVrkToolObject : public QObject
{
    Q_OBJECT

public:
    /// Result of a complete run.
    static constexpr int Done = 2;
    /// Result of a failed run.
    static constexpr int Failed = 3;

    explicit CVrkToolObject(CVrkCliMod* module);
    ~CVrkToolObject() override;

    /// Runs the tool, always synchronously; callers pass false. Returns Done after a complete run.
    virtual int Perform(bool asynchronous) = 0;

protected:
    CVrkCliMod* m_module;
};
