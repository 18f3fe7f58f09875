// jt behind the interface of a measured library. The session is opened with the object and outlives the
// trees, as in a client that handles one job after the other.
#include <cstdlib>

#include "jt.h"
#include "library.h"

namespace bench {
namespace {

class Jt : public Library {
 public:
  Jt() : space_(jt_open_parsing_utility("jt_bench")) { require(space_ != nullptr, "opening a session"); }
  ~Jt() override { jt_close_parsing_utility(space_); }

  bool parse(const std::string &text) override {
    job_ = jt_decode_template(space_, text.c_str());
    return job_ != 0;
  }

  // A status would mean that some value was not evaluated as its type wants.
  bool is_clean() override { return jt_last_api_error(space_) == JT_OK; }

  std::string_view save() override {
    text_ = jt_encode_template(space_, job_);
    return text_ == nullptr ? std::string_view() : text_;
  }

  void release_text() override { jt_destroy_value_string(space_, text_); }

  void destroy() override { jt_destroy_template(space_, job_); }

  Counts count() override {
    Counts counts;
    for (char *name = jt_get_first_service_name(space_, job_); name != nullptr;
         free(name), name = jt_get_next_service_name(space_, job_)) {
      ++counts.services;
      count_invocations(name, counts);
    }
    return counts;
  }

 private:
  void count_invocations(const char *service, Counts &counts) {
    for (int32_t more = jt_first_invocation(space_, job_, service); more != 0;
         more = jt_next_invocation(space_, job_, service)) {
      ++counts.invocations;
      for (char *name = jt_get_first_attribute_name(space_, job_, service); name != nullptr;
           free(name), name = jt_get_next_attribute_name(space_, job_, service)) {
        ++counts.attributes;
        counts.values += count_values(service, name);
      }
    }
  }

  std::size_t count_values(const char *service, const char *attribute) {
    std::size_t values = 0;
    for (char *value = jt_get_first_attribute_value_string(space_, job_, service, attribute);
         value != nullptr;
         free(value), value = jt_get_next_attribute_value_string(space_, job_, service, attribute)) {
      ++values;
    }
    return values;
  }

  jt_parser_space *space_;
  int32_t job_ = 0;
  char *text_ = nullptr;
};

}  // namespace

std::unique_ptr<Library> make_jt() { return std::make_unique<Jt>(); }

std::string jt_version() {
  return std::to_string(JT_VERSION_MAJOR) + "." + std::to_string(JT_VERSION_MINOR) + "." +
         std::to_string(JT_VERSION_PATCH);
}

}  // namespace bench
