#pragma once

#include <QString>

/// What users of this system can do when an iPod does not appear by itself.
struct ConnectingHelp {
    QString Before;
    /// A command to type; empty where there is none.
    QString Command;
    QString After;

    static ConnectingHelp OfThisSystem();
};
