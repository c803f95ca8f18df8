#ifndef TESTS_MUTATION_FAULT_TABLE_H
#define TESTS_MUTATION_FAULT_TABLE_H

#include <vector>

#include "row.h"

struct Fault : test_support::Row {
    const char* file;        // the one with the fault
    const char* source;      // what is compiled: the file itself, or a source that includes it
    const char* text;        // stands in the file once
    const char* replacement; // without the right text
    const char* suite;       // driver, unit, pixels or log
    const char* test;        // by its full name
};

extern const std::vector<Fault> kFaults;

#endif
