// Writes the sample record of the project: korvane-sample BASE_PATH (without extension).

#include "SampleRecord.h"

#include <iostream>

int main(int argc, char* argv[])
{
    if (argc != 2) {
        std::cerr << "Usage: korvane-sample BASE_PATH\n";
        return 2;
    }
    return writeSampleRecord(argv[1]) == 0 ? 0 : 1;
}
