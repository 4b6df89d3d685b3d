#pragma once

#include <QString>

/// What users of this system are told to do where an iPod does not appear by itself.
struct ConnectingHelp {
    QString Before;
    /// A command to be typed; empty where there is none.
    QString Command;
    QString After;

    static ConnectingHelp OfThisSystem();
};
