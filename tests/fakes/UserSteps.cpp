#include "tests/fakes/UserSteps.h"

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

int IndexOf(const QStringList& texts, const QString& text) {
    const qsizetype index = texts.indexOf(text);
    if (index < 0) {
        throw std::logic_error("no such row: " + text.toStdString());
    }
    return static_cast<int>(index);
}

int RowOf(const FakeListControl& list, const QString& text) {
    return text == u"All"_s && list.ListCount() > 0 ? 0 : IndexOf(list.Texts(), text);
}

FakeListControl& ListOf(FakeForm1& form, const QString& name) {
    if (name == u"artist"_s) {
        return form.lstArtists;
    }
    if (name == u"album"_s) {
        return form.lstAlbums;
    }
    if (name == u"song"_s) {
        return form.lstSongs;
    }
    throw std::logic_error("no such step: " + name.toStdString());
}

void DoStep(FakeForm1& form, const QString& verb, const QString& what) {
    if (verb == u"type"_s) {
        form.txtSearch.UserReplace(what);
    } else if (verb == u"clear"_s) {
        form.cmdClear.UserPress();
    } else if (verb == u"copy"_s) {
        form.cmdCopy.UserPress();
    } else if (verb == u"close"_s) {
        form.Form1.UserClose();
    } else if (verb == u"tab"_s) {
        form.tbsFilter.UserSelectTab(IndexOf(form.tbsFilter.Captions, what));
    } else if (verb == u"tick"_s || verb == u"untick"_s) {
        FakeListControl& list = ListOf(form, what.section(u' ', 0, 0));
        list.UserTick(RowOf(list, what.section(u' ', 1)), verb == u"tick"_s);
    } else {
        FakeListControl& list = ListOf(form, verb);
        list.UserClick(RowOf(list, what));
    }
}

} // namespace

void ActOn(FakeForm1& form, const char* steps) {
    for (const QString& step : QString::fromUtf8(steps).split(u", "_s)) {
        DoStep(form, step.section(u' ', 0, 0), step.section(u' ', 1));
    }
}
