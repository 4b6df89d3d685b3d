#include "copy/FolderNames.h"

#include "copy/FittingName.h"

using namespace Qt::StringLiterals;

QString FolderNames::NameFor(const QString& parent, const QString& name) {
    const auto known = m_names.constFind(parent + name);
    if (known != m_names.cend()) {
        return *known;
    }
    auto limits = m_limits.constFind(parent);
    if (limits == m_limits.cend()) {
        limits = m_limits.insert(parent, m_files.LimitsOf(parent));
    }
    const QString owner = name.toLower();
    QString fitting = FittingName(name, QString(), *limits);
    const auto isTaken = [&] { return m_owners.value(parent + fitting.toLower(), owner) != owner; };
    for (int number = 2; isTaken(); ++number) {
        fitting = FittingName(name, u" (%1)"_s.arg(number), *limits);
    }
    m_owners.insert(parent + fitting.toLower(), owner);
    m_names.insert(parent + name, fitting);
    return fitting;
}

void FolderNames::StartOver() {
    m_names.clear();
    m_owners.clear();
    m_limits.clear();
}
