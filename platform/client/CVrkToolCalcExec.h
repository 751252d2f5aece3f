#pragma once

#include "CVar.h"
#include "CVrkToolObject.h"

/// Runs a script of the server over one consistent read of the store.
class VRK_EXPORT CVrkToolCalcExec : public CVrkToolObject
{
    Q_OBJECT

public:
    explicit CVrkToolCalcExec(CVrkCliMod* module);
    ~CVrkToolCalcExec() override;

    /// Evaluates the function and calls it with the elements of the input. Done, and the result in m_output; any
    /// error of the script or the store gives another number and leaves the output empty.
    int Perform(bool asynchronous) override;

    QString m_script; ///< a name, then the parameter list in brackets, then the body
    CVar m_input;     ///< array of arguments
    CVar m_output;
};
