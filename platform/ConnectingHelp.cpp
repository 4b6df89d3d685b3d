#include "platform/ConnectingHelp.h"

using namespace Qt::StringLiterals;

ConnectingHelp ConnectingHelp::OfThisSystem() {
#ifdef Q_OS_WIN
    return {u"Songlift needs it to have a drive letter. If it has none, open the iPod's page\n"
            "in iTunes, tick \"Enable disk use\", and apply it."_s,
            QString(),
            u"Windows cannot read an iPod that was set up with a Mac: such a one does not\n"
            "appear here. Songlift on Linux reads it."_s};
#else
    return {u"Songlift needs it mounted as a drive, and most desktops see to that.\n"
            "On one that does not, open a terminal and type:"_s,
            u"udisksctl mount -b /dev/sdX2"_s,
            u"Put the iPod's data partition in the place "
            "of sdX2: \"lsblk\" lists them all."_s};
#endif
}
