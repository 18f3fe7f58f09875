// Writes the same facts in each format, in that format's own natural form.
#ifndef JT_BENCH_WRITERS_H
#define JT_BENCH_WRITERS_H

#include <string>

#include "facts.h"

namespace bench {

// < SIL 4.2.00 ASCII id > [ type name ] invocation { * type name = value, value; } end < /SIL >
std::string write_sil(const Facts &facts);

// <template><service type="" name=""><invocation name=""><attribute type="" name="" compulsory="">
// <value></value></attribute></invocation></service></template>, without white space between elements.
std::string write_xml(const Facts &facts);

// {"services":[{"type":"","name":"","invocations":[{"name":"","attributes":[{"type":"","name":"",
// "compulsory":true,"values":[]}]}]}]}, without white space; numbers and booleans are JSON's own.
std::string write_json(const Facts &facts);

}  // namespace bench

#endif
