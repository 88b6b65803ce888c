// Decodes the report given as the first argument and prints its station, wind, temperature and
// pressure.
#include <cstdio>

#include "Bulletin.h"

int main(int argc, char* argv[]) {
    if (argc < 2) return 2;
    skelda::SystemClock clock;
    const skelda::Bulletin b = skelda::DecoderMetaf(QString::fromLocal8Bit(argv[1]), clock);
    std::printf("%s %d kt from %s, %d C, %d hPa\n", qPrintable(b.Ida), b.ForceNoeuds, qPrintable(b.OrientationDegre),
                b.Temperature, b.Pression);
    return 0;
}
