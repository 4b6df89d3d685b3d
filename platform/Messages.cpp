#include "platform/Messages.h"

void ShowError(Messages& messages, const RuntimeError& error) {
    messages.Show(QStringLiteral("Error ") + QString::number(int(error.Number)) +
                      QStringLiteral(": ") + error.Description,
                  QStringLiteral("Error"), MessageButtons::OK, MessageIcon::Critical);
}
