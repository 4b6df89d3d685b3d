#include "tools/sample-ipod/SampleIpod.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <cstdio>
#include <exception>

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Makes a folder that looks like an attached iPod. A folder that this program "
        "has made before is kept when it is complete; any other is left alone."));
    parser.addHelpOption();
    const QCommandLineOption small(
        QStringLiteral("small"),
        QStringLiteral("A dozen tracks with meaningless bytes instead of music."));
    parser.addOption(small);
    const QCommandLineOption newer(
        QStringLiteral("newer"),
        QStringLiteral("A newer model, whose tracks are listed in its SQLite library."));
    parser.addOption(newer);
    parser.addPositionalArgument(
        QStringLiteral("folder"),
        QStringLiteral("The folder to make; its name is the iPod's volume name."));
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
