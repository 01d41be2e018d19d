#include "ExportProgram.hpp"
#include "Loaders.hpp"
#include "WriteRapidJSON.hpp"

int main(int argc, char** argv) {
    return runProgram(argc, argv, &runExport<loadRapidJSONSAX, writeRapidJSON, viewOf>);
}
