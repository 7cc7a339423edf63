// tccutil: forgets what this program's user has answered to requests for permission.

#include "platform/ConsentRecords.h"
#include "platform/NSBundle.h"

#include <QCoreApplication>
#include <QStringList>

#include <cstdio>

using namespace brimlow::platform;
using namespace Qt::StringLiterals;

int main(int argc, char* argv[]) {
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const bool understood = arguments.size() == 4 && arguments[1] == "reset"_L1
                            && (arguments[2] == "All"_L1 || arguments[2] == "AppleEvents"_L1)
                            && arguments[3] == builtInBundleIdentifier;
    if (!understood) {
        std::fprintf(stderr, "usage: tccutil reset All|AppleEvents %s\n",
                     qPrintable(builtInBundleIdentifier));
        return 1;
    }
    const ConsentRecords records;
    if (const auto outcome = records.reset(arguments[2]); !outcome) {
        std::fprintf(stderr, "tccutil: %s: %s\n", qPrintable(ConsentRecords::standardPath()),
                     qPrintable(outcome.reason));
        return 1;
    }
    return 0;
}
