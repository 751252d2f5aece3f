#pragma once

#include "CVar.h"
#include "CVrkToolObject.h"

/// Runs a script of the server over one consistent read of the store.
///
/// The script is a function in the server's language. It can use `_ModelTableByName(name)`, a table or
/// null; `CTblRecCount(table)`; `CTblRecSeek(table, key, [values])`, the pair of record and index of the
/// first row that is not ordered before the values, or null and the count if there is none; `CTblRec(table,
/// key, index)`, a record or null; `CRecFldGet(record, field)`, a value or null; `type(x)`, one of
/// `var_Nil`, `var_Int`, `var_Dbl`, `var_Str`, `var_Arr`; `Result`, the global variable that becomes the
/// output; `exit`, which ends the run.
class VRK_EXPORT CVrkToolCalcExec : public CVrkToolObject
{
    Q_OBJECT

public:
    explicit CVrkToolCalcExec(CVrkCliMod* module);
    ~CVrkToolCalcExec() override;

    /// Evaluates the function and calls it with the elements of the input. Returns Done with the result in
    /// m_output; on any error of the script or the store, or past the deadline, returns another number and
    /// leaves the output empty.
    int Perform(bool asynchronous) override;

    /// Limits the duration of a run; the default is 15 seconds.
    void setDeadline(int milliseconds) { m_deadlineMs = milliseconds; }

    QString m_script; ///< a name, then the parameter list in brackets, then the body
    CVar m_input;     ///< array of arguments
    CVar m_output;

private:
    int m_deadlineMs = 15000; // as for a request to the store
};
