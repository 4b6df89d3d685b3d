#pragma once

#include "platform/RuntimeError.h"
#include "tests/window/ControlKit.h"

inline ListRow Row(const char* text, bool ticked = false) {
    return {QString::fromLatin1(text), ticked};
}

/// A list of five rows, "b" and "d" ticked, no row current, that logs its events.
class ListContractTest : public ControlContractTest {
protected:
    using Log = std::vector<std::string>;

    ListControl& list = kit.List();
    Log log;

    ListContractTest() {
        list.Fill({Row("a"), Row("b", true), Row("c"), Row("d", true), Row("e")});
        list.Click = [this] { log.push_back("Click " + std::to_string(list.ListIndex())); };
        list.ItemCheck = [this](int row) {
            log.push_back("ItemCheck " + std::to_string(row) +
                          (list.Selected(row) ? " ticked" : " unticked"));
        };
    }

    std::string Texts() const {
        std::string texts;
        for (int row = 0; row < list.ListCount(); ++row) {
            texts += list.List(row).toStdString() + (list.Selected(row) ? "+" : "-");
        }
        return texts;
    }

    template <class Step>
    static void ExpectOutOfRange(const char* what, Step step) {
        try {
            step();
            ADD_FAILURE() << what << " raised nothing";
        } catch (const RuntimeError& error) {
            EXPECT_EQ(int(error.Number), 9) << what;
            EXPECT_EQ(error.Description, QStringLiteral("Subscript out of range")) << what;
        }
    }
};
