// The two references: to an invocation, "name" or "name:qualifier", and to a collection, a name alone.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "types/value_cases.h"

namespace jt_test {
namespace {

class ReferenceTest : public TypeTest {
 protected:
  using TypeTest::TypeTest;

  // The texts of a record of pointers.
  static std::vector<std::string> texts_of(const jt_value *value, std::size_t count) {
    std::vector<const char *> pointers(count);
    std::memcpy(pointers.data(), value, count * sizeof(const char *));
    return {pointers.begin(), pointers.end()};
  }
};

class InvocationReferenceTest : public ReferenceTest {
 protected:
  InvocationReferenceTest() : ReferenceTest("", "ref_invocation", Reads::kAndCutsIt) {}
};

class CollectionReferenceTest : public ReferenceTest {
 protected:
  CollectionReferenceTest() : ReferenceTest("", "ref_collection") {}
};

// ---- Invocations ----

struct Reference {
  std::string name;
  std::string text;
  std::vector<std::string> texts;
  std::string written;
};

std::ostream &operator<<(std::ostream &out, const Reference &reference) { return out << reference.text; }

using AcceptedInvocationReference = Each<InvocationReferenceTest, Reference>;

TEST_P(AcceptedInvocationReference, IsReadCopiedAndWritten) {
  const Reference &reference = GetParam();
  OwnedValue value = evaluated(reference.text);
  ASSERT_NE(value, nullptr);
  EXPECT_EQ(texts_of(value.get(), 2), reference.texts);
  const OwnedValue copy = copied(value.get());
  ASSERT_NE(copy, nullptr);
  EXPECT_EQ(written(value.get()), reference.written);
  value.reset();
  EXPECT_EQ(texts_of(copy.get(), 2), reference.texts);
  EXPECT_EQ(written(copy.get()), reference.written);
  EXPECT_EQ(messages(), Messages{});
}

INSTANTIATE_TEST_SUITE_P(
    Every, AcceptedInvocationReference,
    ::testing::Values(Reference{"NameAlone", "scan1", {"scan1", ""}, "scan1"},
                      Reference{"NameAndQualifier", "scan1:copy2", {"scan1", "copy2"}, "scan1:copy2"},
                      Reference{"EmptyQualifier", "scan1:", {"scan1", ""}, "scan1"},
                      Reference{"EmptyName", ":copy2", {"", "copy2"}, ":copy2"},
                      Reference{"ColonAlone", ":", {"", ""}, ""},
                      Reference{"SecondColonStays", "a:b:c", {"a", "b:c"}, "a:b:c"},
                      Reference{"TwoColons", "a::", {"a", ":"}, "a::"},
                      Reference{"Blanks", " a : b ", {" a ", " b "}, " a : b "},
                      Reference{"Long",
                                std::string(2000, 'n') + ":" + std::string(3000, 'q'),
                                {std::string(2000, 'n'), std::string(3000, 'q')},
                                std::string(2000, 'n') + ":" + std::string(3000, 'q')}),
    case_name<Reference>);

TEST_F(InvocationReferenceTest, ReadingCutsTheTextAtItsFirstColon) {
  PrivateText text("a:b:c");
  const OwnedValue value(type->eval(space, text.get()), KillValue{space, type});
  EXPECT_EQ(text.bytes(), std::string("a\0b:c", 5));
}

TEST_F(InvocationReferenceTest, ReadingLeavesATextWithoutColonAsItIs) {
  PrivateText text("scan1");
  const OwnedValue value(type->eval(space, text.get()), KillValue{space, type});
  EXPECT_EQ(text.bytes(), "scan1");
}

TEST_F(InvocationReferenceTest, AValueDoesNotDependOnTheTextItWasReadFrom) {
  PrivateText text("ab:cd");
  const OwnedValue value(type->eval(space, text.get()), KillValue{space, type});
  ASSERT_NE(value, nullptr);
  text.get()[0] = 'x';
  text.get()[3] = 'x';
  EXPECT_EQ(written(value.get()), "ab:cd");
}

TEST_F(InvocationReferenceTest, ARecordOfAClientIsCopiedAndWritten) {
  const std::string name = "name";
  const std::string qualifier = "qualifier";
  const std::vector<const char *> record = {name.c_str(), qualifier.c_str()};
  const OwnedValue copy = copied(reinterpret_cast<const jt_value *>(record.data()));
  ASSERT_NE(copy, nullptr);
  EXPECT_EQ(written(copy.get()), "name:qualifier");
}

using ComparedInvocationReferences = Each<InvocationReferenceTest, Comparison>;

TEST_P(ComparedInvocationReferences, AreEqualOrDifferent) { expect_compared(GetParam()); }

INSTANTIATE_TEST_SUITE_P(Every, ComparedInvocationReferences,
                         ::testing::Values(Comparison{"OtherCase", "scan1:copy2", "SCAN1:COPY2", 0},
                                           Comparison{"NamesAlone", "scan1", "Scan1", 0},
                                           Comparison{"EmptyQualifier", "scan1", "scan1:", 0},
                                           Comparison{"OtherName", "scan1:copy2", "scan2:copy2", -2},
                                           Comparison{"OtherQualifier", "scan1:copy2", "scan1:copy3", -2},
                                           Comparison{"NoQualifier", "scan1", "scan1:copy2", -2},
                                           Comparison{"LongerName", "scan", "scan1", -2}),
                         case_name<Comparison>);

TEST_F(InvocationReferenceTest, ReleasingNullIsReported) {
  EXPECT_EQ(type->kill(space, nullptr), 0);
  EXPECT_EQ(messages(), Messages({"MEMORY ERROR: Invalid value, cannot dereferce NULL ..."}));
  EXPECT_EQ(status(), JT_MEMORY_ERROR);
}

// ---- Collections ----

struct Collection {
  std::string name;
  std::string text;
};

std::ostream &operator<<(std::ostream &out, const Collection &collection) { return out << collection.text; }

using AcceptedCollectionReference = Each<CollectionReferenceTest, Collection>;

TEST_P(AcceptedCollectionReference, IsKeptAsItIs) {
  PrivateText text(GetParam().text);
  OwnedValue value(type->eval(space, text.get()), KillValue{space, type});
  ASSERT_NE(value, nullptr);
  EXPECT_EQ(text.bytes(), GetParam().text);
  EXPECT_EQ(texts_of(value.get(), 1), std::vector<std::string>({GetParam().text}));
  const OwnedValue copy = copied(value.get());
  ASSERT_NE(copy, nullptr);
  EXPECT_EQ(written(value.get()), GetParam().text);
  value.reset();
  EXPECT_EQ(texts_of(copy.get(), 1), std::vector<std::string>({GetParam().text}));
  EXPECT_EQ(written(copy.get()), GetParam().text);
  EXPECT_EQ(messages(), Messages{});
}

INSTANTIATE_TEST_SUITE_P(Every, AcceptedCollectionReference,
                         ::testing::Values(Collection{"Word", "coll1"}, Collection{"Colons", "a:b:c"},
                                           Collection{"ColonAlone", ":"}, Collection{"Blank", " "},
                                           Collection{"Long", std::string(3000, 'c')}),
                         case_name<Collection>);

TEST_F(CollectionReferenceTest, AValueDoesNotDependOnTheTextItWasReadFrom) {
  PrivateText text("coll1");
  const OwnedValue value(type->eval(space, text.get()), KillValue{space, type});
  ASSERT_NE(value, nullptr);
  *text.get() = 'x';
  EXPECT_EQ(written(value.get()), "coll1");
}

using ComparedCollectionReferences = Each<CollectionReferenceTest, Comparison>;

TEST_P(ComparedCollectionReferences, AreEqualOrDifferent) { expect_compared(GetParam()); }

INSTANTIATE_TEST_SUITE_P(Every, ComparedCollectionReferences,
                         ::testing::Values(Comparison{"OtherCase", "Coll1", "cOLL1", 0},
                                           Comparison{"OtherName", "coll1", "coll2", -2},
                                           Comparison{"LongerName", "coll", "coll1", -2}),
                         case_name<Comparison>);

TEST_F(CollectionReferenceTest, ReleasingNullIsReported) {
  EXPECT_EQ(type->kill(space, nullptr), 0);
  EXPECT_EQ(messages(), Messages({"MEMORY ERROR: Invalid value, cannot dereference NULL ..."}));
  EXPECT_EQ(status(), JT_MEMORY_ERROR);
}

}  // namespace
}  // namespace jt_test
