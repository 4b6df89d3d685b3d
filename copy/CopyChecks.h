#pragma once

#include "copy/Destination.h"
#include "platform/EventLoop.h"
#include "platform/Messages.h"
#include "platform/PatientFileSystem.h"
#include "selection/SelectionSummary.h"

/// What must hold before a copy job starts. No job runs yet, so a check that fails leaves nothing
/// to clean up.
class CopyChecks {
public:
    CopyChecks(PatientFileSystem& files, Messages& messages, EventLoop& events,
               Destination& destination, const SelectionSummary& summary,
               TextControl& txtDestination);

    /// Whether the destination is there or could be made, and takes all that is ticked, or as much
    /// of it as the user wants. Tells the user why not.
    bool Pass();

private:
    bool DestinationIsReady();
    void RefuseDestination(const QString& folder);
    bool OfferToCreate(const QString& folder);
    bool AcceptFreeSpace(const QString& folder);
    MessageAnswer Ask(const QString& text, MessageButtons buttons, MessageIcon icon);

    PatientFileSystem& m_files;
    Messages& m_messages;
    EventLoop& m_events;
    Destination& m_destination;
    const SelectionSummary& m_summary;
    TextControl& m_txtDestination;
};
