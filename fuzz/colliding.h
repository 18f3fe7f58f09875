// Names and numbers that the hashes of the first version gave one place: they had no secret, so anybody could
// make such. Whatever the library does now, these must cost no more than others.
#ifndef JT_FUZZ_COLLIDING_H
#define JT_FUZZ_COLLIDING_H

#include <cstddef>
#include <string>
#include <vector>

namespace jt_fuzz {

// Of the two characters given; with two that differ in the bit that folds letters all were alike to that
// hash.
std::string twin_name(std::size_t number, char zero, char one);

// Sixteen bytes each. All their bits of the hash are the same.
std::vector<std::string> names_of_one_hash(std::size_t count);

// Short ones. Twelve low bits of the hash are the same, which is what a table of a few thousand looks at.
std::vector<std::string> names_of_one_home(std::size_t count);
std::vector<std::string> numbers_of_one_home(std::size_t count);

}  // namespace jt_fuzz

#endif
