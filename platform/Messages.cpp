#include "platform/Messages.h"

using namespace Qt::StringLiterals;

void ShowError(Messages& messages, const RuntimeError& error) {
    messages.Show(u"Error "_s + QString::number(int(error.Number)) + u": "_s + error.Description,
                  u"Error"_s, MessageButtons::OK, MessageIcon::Critical);
}
