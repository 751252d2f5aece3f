#pragma once

#include <QString>

/// How the length of workshifts is controlled. Off until the server's options say otherwise.
struct DurationOptions {
    bool isOn = false;
    int delay = 0;    ///< seconds by which a workshift may overrun its end
    int interval = 0; ///< seconds between two notices

    /// Reads the element Options of the options file. What stands before an error of the XML counts; a number that is
    /// none is 0; while the control is off the other two are not read.
    static DurationOptions fromXml(const QString& xml);
};
