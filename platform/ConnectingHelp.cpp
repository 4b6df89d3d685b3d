#include "platform/ConnectingHelp.h"

ConnectingHelp ConnectingHelp::OfThisSystem() {
#ifdef Q_OS_WIN
    return {QStringLiteral(
                "Songlift needs it to have a drive letter. If it has none, open the iPod's page\n"
                "in iTunes, tick \"Enable disk use\", and apply it."),
            QString(),
            QStringLiteral(
                "Windows cannot read an iPod that was set up with a Mac: such a one does not\n"
                "appear here. Songlift on Linux reads it.")};
#else
    return {QStringLiteral("Songlift needs it mounted as a drive, and most desktops see to that.\n"
                           "On one that does not, open a terminal and type:"),
            QStringLiteral("udisksctl mount -b /dev/sdX2"),
            QStringLiteral("Put the iPod's data partition in the place "
                           "of sdX2: \"lsblk\" lists them all.")};
#endif
}
