#include "tools/sample-ipod/SampleIpod.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <cstdio>
#include <exception>

using namespace Qt::StringLiterals;

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(
        u"Makes a folder that looks like an attached iPod. A folder that this program "
        "has made before is kept when it is complete; any other is left alone."_s);
    parser.addHelpOption();
    const QCommandLineOption small(u"small"_s,
                                   u"A dozen tracks with meaningless bytes instead of music."_s);
    parser.addOption(small);
    const QCommandLineOption newer(
        u"newer"_s, u"A newer model, whose tracks are listed in its SQLite library."_s);
    parser.addOption(newer);
    parser.addPositionalArgument(u"folder"_s,
                                 u"The folder to make; its name is the iPod's volume name."_s);
    parser.process(application);
    if (parser.positionalArguments().size() != 1) {
        parser.showHelp(2);
    }
    try {
        MakeSampleIpod(parser.positionalArguments().constFirst(),
                       parser.isSet(small) ? SampleKind::Small : SampleKind::Full,
                       parser.isSet(newer) ? SampleModel::Newer : SampleModel::Classic);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "make-sample-ipod: %s\n", error.what());
        return 1;
    }
    return 0;
}
