#pragma once

#include "CVar.h"
#include "CVrkToolObject.h"

/// Runs a script of the server over one consistent read of the store.
///
/// The script is a function in the server's language; what it sees:
/// `_ModelTableByName(name)`, a table or null; `CTblRecCount(table)`; `CTblRecSeek(table, key, [values])`,
/// the pair of record and index of the first row not ordered before the values, null and the count when all
/// are; `CTblRec(table, key, index)`, a record or null; `CRecFldGet(record, field)`, a value or null;
/// `type(x)`, one of `var_Nil`, `var_Int`, `var_Dbl`, `var_Str`, `var_Arr`; `Result`, the global variable
/// that becomes the output; `exit`, which ends the run.
class VRK_EXPORT CVrkToolCalcExec : public CVrkToolObject
{
    Q_OBJECT

public:
    explicit CVrkToolCalcExec(CVrkCliMod* module);
    ~CVrkToolCalcExec() override;

    /// Evaluates the function and calls it with the elements of the input. Done, and the result in m_output;
    /// any error of the script or the store, or a run past the deadline, gives another number and leaves the
    /// output empty.
    int Perform(bool asynchronous) override;

    /// How long a run may take before it is broken off; 15 seconds when nothing is set.
    void setDeadline(int milliseconds) { m_deadlineMs = milliseconds; }

    QString m_script; ///< a name, then the parameter list in brackets, then the body
    CVar m_input;     ///< array of arguments
    CVar m_output;

private:
    int m_deadlineMs = 15000; // as for a request to the store
};
