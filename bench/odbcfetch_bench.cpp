// What it costs to open a million rows, under Windows or Wine.

#include "bench/odbcfetch.h"

int main() {
    return bench::MeasureFetches();
}
