#pragma once

#include <QString>

/// Options of the workshift duration control. Off unless the server's options switch it on.
struct DurationOptions {
    bool isOn = false;
    int delay = 0;    ///< seconds by which a workshift may exceed its end
    int interval = 0; ///< seconds between two notices

    /// Reads the element Options of the options file. Attributes before an XML error count; an invalid
    /// number is 0; while the control is off the other two are not read.
    static DurationOptions fromXml(const QString& xml);
};
