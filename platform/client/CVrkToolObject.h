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

    explicit CVrkToolObject(CVrkCliMod* module);
    ~CVrkToolObject() override;

    /// Runs the tool; false is synchronous, the only way asked for. Done when it ran to its end.
    virtual int Perform(bool asynchronous) = 0;

protected:
    CVrkCliMod* m_module;
};
