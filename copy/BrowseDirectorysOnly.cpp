#include "copy/BrowseDirectorysOnly.h"

namespace {

QString UpToNul(const QString& text) {
    return text.left(text.indexOf(u'\0'));
}

} // namespace

FolderPicker::FolderPicker(Shell& shell) : m_shell(shell) {
}

QString FolderPicker::BrowseDirectorysOnly(WindowHandle Owner, const QString& Prompt,
                                           const QString& StartFolder) {
    InitialFolder = StartFolder + u'\0';
    return UpToNul(m_shell.BrowseForFolder(Owner, Prompt, UpToNul(InitialFolder)));
}
