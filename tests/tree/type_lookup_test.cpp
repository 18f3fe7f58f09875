// The type of a node in its place: which names are known where, what an unknown name means there, and which
// places are refused.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tree/tree_session.h"

namespace {

using jt_test::Messages;

constexpr const char *kBaseTypes[] = {
    "boolean",          "description",      "doc_object", "enum_systemidalgorithm",
    "enum_units",       "generic_service",  "instance",   "integer",
    "invocation",       "kmt_enum_status",  "real",       "ref_collection",
    "ref_invocation",   "service",          "sil_header", "string",
    "struct_rectangle", "struct_timeofday", "template",   "timestamp",
    "unknown_type",
};

constexpr const char *kServices[] = {
    "kmt_document",       "kmt_svc_general",     "kmt_svc_fax",          "kmt_svc_file",
    "kmt_svc_scan",       "kmt_svc_print",       "kmt_svc_notification", "kmt_svc_email",
    "kmt_svc_ocr",        "kmt_svc_docman",      "kmt_svc_paperware",    "kmt_svc_desktop",
    "kmt_svc_validation", "kmt_dscrpt_metadata",
};

// A type that only this service knows, where it has one.
struct Scope {
  const char *service;
  const char *type_name;
};

constexpr Scope kScopes[] = {
    {"kmt_document", "enum_docformat"},
    {"kmt_svc_general", "enum_confmethod"},
    {"kmt_svc_fax", "enum_transmissionmode"},
    {"kmt_svc_file", "enum_filingpolicy"},
    {"kmt_svc_scan", "struct_gutter"},
    {"kmt_svc_print", "enum_printmode"},
    {"kmt_svc_email", "enum_emailprotocol"},
    {"kmt_svc_ocr", "enum_conversionlanguage"},
    {"kmt_svc_validation", "enum_validationtimeoutpolicy"},
    {"kmt_dscrpt_metadata", "enum_metadatamaskingrequired"},
};

class TypeLookup : public jt_test::TreeTest {
 protected:
  const jt_type *look_up(const char *type_name, int32_t node_class, const jt_node *enclosing) {
    forget_messages();
    return jt_get_type(space, type_name, node_class, enclosing);
  }
  // The descriptor of that name, found without a report.
  const jt_type *known(const char *type_name, int32_t node_class, const jt_node *enclosing) {
    const jt_type *const type = look_up(type_name, node_class, enclosing);
    EXPECT_EQ(messages(), Messages());
    EXPECT_NE(type, jt_unknown_type());
    if (type == nullptr || type == jt_unknown_type()) return nullptr;
    EXPECT_EQ(lowercasecmp(type->name, type_name), 0) << type->name;
    return type;
  }
  const jt_type *base(const char *type_name) { return get_type_from_services(space, nullptr, type_name); }

  void expect_unknown(const char *warning, const char *type_name, int32_t node_class,
                      const jt_node *enclosing) {
    EXPECT_EQ(look_up(type_name, node_class, enclosing), jt_unknown_type());
    EXPECT_EQ(messages(), Messages{std::string(warning) + type_name + " ..."});
    EXPECT_EQ(status(), -3);
  }
  void expect_unknown_service(const char *type_name, const jt_node *enclosing) {
    expect_unknown("WARNING: unknown service:", type_name, JT_NODE_INVOCATION, enclosing);
  }
  void expect_unknown_attribute(const char *type_name, const jt_node *enclosing) {
    expect_unknown("WARNING: unknown attribute type:", type_name, JT_NODE_ATTRIBUTE, enclosing);
  }
  void expect_refused(const char *type_name, int32_t node_class, const jt_node *enclosing) {
    SCOPED_TRACE(node_class);
    EXPECT_EQ(look_up(type_name, node_class, enclosing), nullptr);
    EXPECT_EQ(messages(), Messages{std::string("SYNTAX ERROR: unknown or invalid type:") +
                                   (type_name != nullptr ? type_name : "(null)") + " ..."});
    EXPECT_EQ(status(), -5);
  }

  jt_node *service(const char *type_name, const char *name) {
    return add_service(make_template(), type_name, name);
  }
  jt_node *invocation(const char *type_name, const char *name) {
    return add_invocation(service(type_name, name));
  }
  // One node of every class from 0 to 8.
  jt_test::Nodes one_of_each() {
    jt_node *const inside = scan_invocation();
    jt_node *const attribute = add_attribute(inside, "integer", "copies");
    return {inside->parent->parent,
            inside->parent,
            inside,
            attribute,
            add_value(attribute, "1"),
            make_header(),
            make("sil_header", "other", JT_NODE_HEADER_QUESTION, nullptr),
            make("sil_header", "other", JT_NODE_HEADER_PLAIN, nullptr),
            make("sil_header", "other", JT_NODE_HEADER_EXCLAIM, nullptr)};
  }
};

// ---- Templates and headers ----

TEST_F(TypeLookup, TemplatesAndHeadersFindEveryBaseType) {
  for (const int32_t node_class : {0, 5, 6, 7, 8}) {
    for (const char *const type_name : kBaseTypes) {
      SCOPED_TRACE(type_name);
      EXPECT_EQ(known(type_name, node_class, nullptr), base(type_name));
    }
  }
}

TEST_F(TypeLookup, TemplatesAndHeadersFindNothingElse) {
  for (const int32_t node_class : {0, 5, 6, 7, 8}) {
    for (const char *const type_name : {"kmt_svc_scan", "enum_mediasize", "no_such_type", ""})
      expect_refused(type_name, node_class, nullptr);
    expect_refused(nullptr, node_class, nullptr);
  }
}

TEST_F(TypeLookup, TemplatesAndHeadersAreNotEnclosed) {
  for (const jt_node *const enclosing : one_of_each()) {
    for (const int32_t node_class : {0, 5, 6, 7, 8}) expect_refused("template", node_class, enclosing);
  }
}

TEST_F(TypeLookup, TypeNamesIgnoreCase) {
  EXPECT_EQ(known("TEMPLATE", 0, nullptr), base("template"));
  EXPECT_EQ(known("Sil_Header", 5, nullptr), base("sil_header"));
}

// ---- Services ----

TEST_F(TypeLookup, AServiceMayHaveAnyBaseType) {
  const jt_node *const root = make_template();
  for (const char *const type_name : kBaseTypes) EXPECT_EQ(known(type_name, 1, root), base(type_name));
}

TEST_F(TypeLookup, AServiceMayHaveTheBlockTypeOfEveryService) {
  const jt_node *const root = make_template();
  for (const char *const name : kServices) {
    SCOPED_TRACE(name);
    const jt_type *const type = known(name, 1, root);
    EXPECT_EQ(type, get_type_from_services(space, name, name));
    EXPECT_EQ(type->eval, nullptr);
  }
}

TEST_F(TypeLookup, TheBlockTypeOfAServiceIsTheRowOfItsTable) {
  const jt_node *const root = make_template();
  EXPECT_EQ(known("kmt_svc_scan", 1, root), &scan_type_tab[18]);
  EXPECT_EQ(known("KMT_SVC_SCAN", 1, root), &scan_type_tab[18]);
  EXPECT_EQ(known("kmt_svc_print", 1, root), &print_type_tab[4]);
  EXPECT_EQ(known("kmt_document", 1, root), &doc_type_tab[13]);
  EXPECT_EQ(known("kmt_svc_desktop", 1, root), &desksvc_type_tab[0]);
}

TEST_F(TypeLookup, AServiceMayHaveNoOtherType) {
  const jt_node *const root = make_template();
  for (const char *const type_name :
       {"kmt_svc_traikubra", "kmt_svc_quillform", "enum_mediasize", "struct_gutter", "no_such_type", ""})
    expect_refused(type_name, 1, root);
  expect_refused(nullptr, 1, root);
}

TEST_F(TypeLookup, AServiceStandsInATemplateOnly) {
  for (const jt_node *const enclosing : one_of_each()) {
    if (enclosing->node_class != JT_NODE_TEMPLATE) expect_refused("kmt_svc_scan", 1, enclosing);
  }
  expect_refused("kmt_svc_scan", 1, nullptr);
}

// ---- Invocations ----

TEST_F(TypeLookup, AnInvocationHasTheBlockTypeOfItsServicesName) {
  for (const char *const name : kServices) {
    SCOPED_TRACE(name);
    const jt_node *const inside = service("service", name);
    EXPECT_EQ(known(name, 2, inside), get_type_from_services(space, name, name));
  }
}

TEST_F(TypeLookup, TheNameOfTheServiceIgnoresCase) {
  EXPECT_EQ(known("KMT_SVC_SCAN", 2, service("service", "Kmt_Svc_Scan")), &scan_type_tab[18]);
}

TEST_F(TypeLookup, UnderAKnownServiceItsTypesAndTheBaseTypesAreFound) {
  const jt_node *const inside = service("service", "kmt_svc_scan");
  EXPECT_EQ(known("enum_mediasize", 2, inside), &scan_type_tab[11]);
  EXPECT_EQ(known("integer", 2, inside), base("integer"));
  expect_unknown_service("kmt_svc_print", inside);
}

TEST_F(TypeLookup, TheNameOfTheServiceWinsOverItsType) {
  EXPECT_EQ(known("kmt_svc_print", 2, service("kmt_svc_scan", "kmt_svc_print")), &print_type_tab[4]);
}

TEST_F(TypeLookup, AServiceWithANameOfItsOwnLendsItsType) {
  EXPECT_EQ(look_up("MyScan", 2, service("kmt_svc_scan", "MyScan")), &scan_type_tab[18]);
  EXPECT_EQ(messages(), Messages());
  for (const char *const name : kServices) {
    SCOPED_TRACE(name);
    EXPECT_EQ(look_up("MyOwn", 2, service(name, "MyOwn")), get_type_from_services(space, name, name));
    EXPECT_EQ(messages(), Messages());
  }
}

TEST_F(TypeLookup, TheTypeOfTheServiceWinsOverABaseTypeOfItsName) {
  EXPECT_EQ(look_up("integer", 2, service("kmt_svc_scan", "integer")), &scan_type_tab[18]);
}

TEST_F(TypeLookup, AServiceNamedAfterABaseTypeLendsThatType) {
  EXPECT_EQ(known("integer", 2, service("service", "integer")), base("integer"));
  EXPECT_EQ(known("STRING", 2, service("service", "String")), base("string"));
}

TEST_F(TypeLookup, AnyOtherServiceIsUnknown) {
  expect_unknown_service("MyOwn", service("service", "MyOwn"));
  expect_unknown_service("MyOwn", service("integer", "MyOwn"));
  expect_unknown_service("kmt_svc_traikubra", service("service", "kmt_svc_traikubra"));
  expect_unknown_service("kmt_svc_quillform", service("service", "kmt_svc_quillform"));
}

TEST_F(TypeLookup, AServiceWithoutANameHasTheScopeOfItsType) {
  const jt_node *const scan = service("kmt_svc_scan", "");
  EXPECT_EQ(known("kmt_svc_scan", 2, scan), &scan_type_tab[18]);
  EXPECT_EQ(known("enum_mediasize", 2, scan), &scan_type_tab[11]);
  EXPECT_EQ(look_up(nullptr, 2, scan), jt_unknown_type());
  expect_unknown_service("MyOwn", service("service", ""));
}

TEST_F(TypeLookup, ANullTypeNameOfAnInvocationIsUnknown) {
  EXPECT_EQ(look_up(nullptr, 2, service("service", "MyOwn")), jt_unknown_type());
  EXPECT_EQ(messages(), Messages{"WARNING: unknown service:(null) ..."});
}

TEST_F(TypeLookup, AnInvocationStandsInAServiceOnly) {
  for (const jt_node *const enclosing : one_of_each()) {
    if (enclosing->node_class != JT_NODE_SERVICE) expect_refused("kmt_svc_scan", 2, enclosing);
  }
  expect_refused("kmt_svc_scan", 2, nullptr);
}

// ---- Attributes ----

TEST_F(TypeLookup, AnAttributeFindsTheTypesOfItsService) {
  for (const Scope &row : kScopes) {
    SCOPED_TRACE(row.service);
    const jt_node *const inside = invocation("service", row.service);
    EXPECT_EQ(known(row.type_name, 3, inside), get_type_from_services(space, row.service, row.type_name));
  }
}

TEST_F(TypeLookup, AnAttributeDoesNotFindTheTypesOfAnotherService) {
  for (const Scope &row : kScopes) {
    for (const Scope &other : kScopes) {
      if (row.service == other.service) continue;
      SCOPED_TRACE(row.service);
      expect_unknown_attribute(other.type_name, invocation("service", row.service));
    }
  }
}

TEST_F(TypeLookup, AnAttributeFindsEveryBaseTypeUnderEveryService) {
  for (const char *const name : kServices) {
    const jt_node *const inside = invocation("service", name);
    for (const char *const type_name : kBaseTypes) {
      SCOPED_TRACE(type_name);
      EXPECT_EQ(known(type_name, 3, inside), base(type_name));
    }
  }
}

TEST_F(TypeLookup, UnitsAreKnownEverywhereAndMediaSizesOnlyToTheScanner) {
  const jt_node *const scan = invocation("service", "kmt_svc_scan");
  const jt_node *const print = invocation("service", "kmt_svc_print");
  EXPECT_EQ(known("enum_units", 3, scan), base("enum_units"));
  EXPECT_EQ(known("enum_units", 3, print), base("enum_units"));
  EXPECT_EQ(known("ENUM_MEDIASIZE", 3, scan), &scan_type_tab[11]);
  expect_unknown_attribute("enum_mediasize", print);
}

TEST_F(TypeLookup, TheSameTypeNameMeansAnotherTypeInAnotherService) {
  EXPECT_EQ(known("enum_type", 3, invocation("service", "kmt_svc_scan")), &scan_type_tab[17]);
  EXPECT_EQ(known("enum_type", 3, invocation("service", "kmt_svc_fax")), &fax_type_tab[2]);
  EXPECT_EQ(known("enum_type", 3, invocation("service", "kmt_svc_file")), &file_type_tab[5]);
  EXPECT_EQ(known("enum_type", 3, invocation("service", "kmt_svc_general")), &gen_type_tab[6]);
}

TEST_F(TypeLookup, AServiceWithANameOfItsOwnLendsItsTypes) {
  const jt_node *const inside = invocation("kmt_svc_scan", "MyScan");
  EXPECT_EQ(known("enum_mediasize", 3, inside), &scan_type_tab[11]);
  EXPECT_EQ(known("integer", 3, inside), base("integer"));
  expect_unknown_attribute("enum_printmode", inside);
}

TEST_F(TypeLookup, UnderAnUnknownServiceOnlyBaseTypesAreKnown) {
  for (const char *const name : {"MyOwn", "kmt_svc_traikubra", "kmt_svc_quillform"}) {
    const jt_node *const inside = invocation("service", name);
    EXPECT_EQ(inside->type, jt_unknown_type());
    for (const char *const type_name : kBaseTypes) EXPECT_EQ(known(type_name, 3, inside), base(type_name));
    expect_unknown_attribute("enum_mediasize", inside);
    expect_unknown_attribute(name, inside);
  }
}

TEST_F(TypeLookup, UnderAServiceNamedAfterABaseTypeOnlyBaseTypesAreKnown) {
  const jt_node *const inside = invocation("service", "integer");
  EXPECT_EQ(known("string", 3, inside), base("string"));
  expect_unknown_attribute("enum_mediasize", inside);
}

TEST_F(TypeLookup, UnderAnInvocationThatIsNoBlockOnlyBaseTypesAreKnown) {
  jt_node *const scan = service("service", "kmt_svc_scan");
  const jt_node *const inside = make("enum_mediasize", "odd", JT_NODE_INVOCATION, scan);
  EXPECT_EQ(inside->type, &scan_type_tab[11]);
  EXPECT_EQ(known("integer", 3, inside), base("integer"));
  expect_unknown_attribute("enum_mediasize", inside);
}

TEST_F(TypeLookup, ANullTypeNameOfAnAttributeIsUnknown) {
  EXPECT_EQ(look_up(nullptr, 3, scan_invocation()), jt_unknown_type());
  EXPECT_EQ(messages(), Messages{"WARNING: unknown attribute type:(null) ..."});
}

TEST_F(TypeLookup, AnAttributeOfAHeaderFindsBaseTypesOnly) {
  const jt_node *const header = make_header();
  for (const char *const type_name : kBaseTypes) EXPECT_EQ(known(type_name, 3, header), base(type_name));
  expect_unknown_attribute("enum_mediasize", header);
  EXPECT_EQ(look_up(nullptr, 3, header), jt_unknown_type());
  EXPECT_EQ(messages(), Messages{"WARNING: unknown attribute type:(null) ..."});
}

TEST_F(TypeLookup, AnyNodeNamedHeaderHoldsAttributes) {
  jt_node *const inside = scan_invocation();
  const jt_node *const holders[] = {
      make("template", "header", JT_NODE_TEMPLATE, nullptr),
      make("template", "HeadeR", JT_NODE_TEMPLATE, nullptr),
      make("service", "header", JT_NODE_SERVICE, make_template()),
      make("integer", "HEADER", JT_NODE_ATTRIBUTE, inside),
      make("string", "header", JT_NODE_HEADER_PLAIN, nullptr),
  };
  for (const jt_node *const holder : holders) {
    EXPECT_EQ(known("integer", 3, holder), base("integer"));
    expect_unknown_attribute("enum_mediasize", holder);
  }
}

TEST_F(TypeLookup, AnInvocationNamedHeaderIsStillAnInvocation) {
  jt_node *const inside = add_invocation(service("service", "kmt_svc_scan"), "header");
  EXPECT_EQ(known("enum_mediasize", 3, inside), &scan_type_tab[11]);
}

TEST_F(TypeLookup, AnAttributeStandsNowhereElse) {
  for (const jt_node *const enclosing : one_of_each()) {
    const bool holds = enclosing->node_class == JT_NODE_INVOCATION || enclosing->node_class == JT_NODE_HEADER;
    if (!holds) expect_refused("integer", 3, enclosing);
  }
  expect_refused("integer", 3, make("template", "headers", JT_NODE_TEMPLATE, nullptr));
  expect_refused("integer", 3, make("template", "", JT_NODE_TEMPLATE, nullptr));
  expect_refused("integer", 3, nullptr);
  expect_refused(nullptr, 3, nullptr);
}

// ---- Values ----

TEST_F(TypeLookup, AValueHasTheTypeOfItsAttributeWhateverTheName) {
  jt_node *const inside = scan_invocation();
  const jt_node *const attribute = add_attribute(inside, "enum_mediasize", "size");
  for (const char *const name : {"enum_mediasize", "no_such_type", "", static_cast<const char *>(nullptr)}) {
    EXPECT_EQ(look_up(name, 4, attribute), &scan_type_tab[11]);
    EXPECT_EQ(messages(), Messages());
  }
}

TEST_F(TypeLookup, AValueOfAnUntypedAttributeIsUntypedWithoutAWarning) {
  const jt_node *const attribute = add_attribute(scan_invocation(), "mystery", "riddle");
  EXPECT_EQ(look_up("mystery", 4, attribute), jt_unknown_type());
  EXPECT_EQ(messages(), Messages());
}

TEST_F(TypeLookup, AValueOfAnAttributeWithoutADescriptorIsRefused) {
  jt_node *const attribute = make("integer", "copies", JT_NODE_ATTRIBUTE, scan_invocation());
  const jt_type *const type = attribute->type;
  attribute->type = nullptr;
  expect_refused("integer", 4, attribute);
  attribute->type = type;
}

TEST_F(TypeLookup, AValueStandsUnderAnAttributeOnly) {
  for (const jt_node *const enclosing : one_of_each()) {
    if (enclosing->node_class != JT_NODE_ATTRIBUTE) expect_refused("integer", 4, enclosing);
  }
  expect_refused("integer", 4, nullptr);
}

// ---- Other classes, and no session ----

TEST_F(TypeLookup, ClassesThatDoNotExistAreRefused) {
  const jt_node *const inside = scan_invocation();
  for (const int32_t node_class : {9, 10, -1, 1000, -1000}) {
    expect_refused("integer", node_class, nullptr);
    expect_refused("integer", node_class, inside);
  }
}

TEST_F(TypeLookup, NeedsNoSessionToFind) {
  EXPECT_EQ(jt_get_type(nullptr, "template", 0, nullptr), base("template"));
  EXPECT_EQ(jt_get_type(nullptr, "no_such_type", 0, nullptr), nullptr);
  EXPECT_EQ(jt_get_type(nullptr, "no_such_type", 3, make_header()), jt_unknown_type());
  EXPECT_EQ(messages(), Messages());
}

}  // namespace
