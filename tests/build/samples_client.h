// What the sample code of jt.h does when it is compiled and run.
#ifndef JT_TESTS_BUILD_SAMPLES_CLIENT_H
#define JT_TESTS_BUILD_SAMPLES_CLIENT_H

#include "jt.h"

#ifdef __cplusplus
extern "C" {
#endif

// Decodes and encodes a text, and prints what the sample prints. "written" or "refused".
const char *jt_test_opening_sample(const char *text);

// 100 for each invocation of the service, 10 for each attribute of its first one, 1 for each service, 1000 for
// each service of the catalogue.
int jt_test_walk_samples(jt_parser_space *s, int32_t job, const char *service);

// Prints each finding in a text as the sample does, with the name of a file. What the check gives.
int jt_test_finding_sample(jt_parser_space *s, const char *text, size_t size, char *name);

#ifdef __cplusplus
}
#endif

#endif
