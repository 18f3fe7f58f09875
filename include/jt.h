/*
 * jt: reads and writes SIL, the plain-text language of job templates for multifunction office devices.
 *
 * A template tells a device what to do (scan, send, file, print, fax ...) and, afterwards, records how it
 * went. jt turns the text into a tree, lets a client read and change the tree, and writes it back as text.
 *
 *   jt_parser_space *session = jt_open_parsing_utility("my program");
 *   int32_t job = jt_decode_template(session, text);
 *   if (job == 0) puts(jt_last_api_error(session) ? jt_get_recent_error(session) : "the text is cut off");
 *   ... read and change it ...
 *   char *result = jt_encode_template(session, job);
 *   free(result);
 *   jt_close_parsing_utility(session);
 *
 * One header, valid C11 and C++. Its chapters: handles and records; sessions, errors, texts; templates;
 * values; services and invocations; reading attributes; changing attributes; statuses. The last two
 * chapters export the tree and the types beneath these calls, for tools that look closer; most clients
 * never need them.
 *
 * WHAT HOLDS FOR EVERY CALL
 *
 * Session. A session ("parser space") owns everything that is made in it. It belongs to one thread at a
 * time. Any number of sessions may be used on as many threads: they share nothing, but for the column at
 * which the last text that was encoded on the same thread ended (see jt_encode_template()).
 *
 * Result. 1 for success and 0 for failure, or a pointer and null, unless a call says otherwise. A failing
 * call leaves the template as it was.
 *
 * Texts. Bytes up to a NUL. What a call is given it only reads, and only during the call; what it keeps is
 * a copy. Names (of services, invocations, attributes, types, enumerated values) are the same whatever the
 * case of the letters A to Z. No result depends on the locale.
 *
 * Null. A null name matches nothing and is shown as "(null)" in messages. Other null arguments are refused
 * or accepted as each call says; none is ever read through.
 *
 * Ownership. A result of type "char *" or "jt_status *" is one block of the heap and the caller's to
 * release: jt_destroy_value_string(), jt_destroy_name(), jt_destroy_status() and free() all do. A
 * "jt_value *" may own further blocks and goes with jt_destroy_value(). A "const char *" result is the
 * library's; do not release it.
 *
 * Frame. The calls of the first chapters check in this order and stop at the first failure:
 *
 *     parser handle is null             the call fails at once; nothing is recorded in any session
 *                                       (from here on the status of the session is 0 again)
 *     its own arguments                 as the call says
 *     [template]   handle is not live   "SYSTEM ERROR: unknown opaque marker", then
 *                                       "CALL ERROR: not a valid handle"
 *                  not of a template    "CALL ERROR: not a template"
 *     [service]    no such service      "CALL ERROR: does not exist:" + service name
 *     [invocation] no current one       "CALL ERROR: no current invocation"
 *     [attribute]  no such attribute    "CALL ERROR: does not exist:" + attribute name
 *
 * The word in brackets before a call's text says how deep it resolves; these messages are not repeated
 * there.
 *
 * Status and history. A report is a message, a detail directly behind it, and " ..."; its first words are
 * its category. The status is the category of the last report made during the last call, 0 when there was
 * none. A call may succeed with a status (a warning), and a few fail without one. The history keeps the
 * newest five reports of the session and is never cleared. "+ name" below means: with the name as detail.
 *
 * Cursors live in the tree. A template remembers a position among its services, a service among its
 * invocations (its current invocation), an invocation among its attributes, an attribute among its values.
 * So two walks over the same children disturb each other. A cursor has not started (a fresh node: reading
 * begins at the first child), stands on a child, or has run out. Appending a child to a node whose cursor
 * has not started or has run out sets it on the new child. Destroying the child under it moves it to the
 * one before, or, when there is none, to the one after. After a decode every cursor stands on the first
 * child.
 *
 * Reading back. A text from jt_encode_template() is read as the same services, invocations, attributes,
 * values, statuses and comments, in the same order. The exceptions:
 *
 *   names set by a client       They are written as they are. One with blanks, punctuation or quotes, or
 *                               beyond the limits of a text, is refused or read as something else; so is
 *                               an attribute of unknown type.
 *   comments added by a client  They are written as they are, also where they are no lines of comment.
 *   statuses, and the texts     They are written as they are, without the quotes that they may have been
 *   in their braces             read with. Of a text of several words only the last one is read; a status
 *                               of several words is refused, and so is a text with punctuation or the text
 *                               "end". An empty status is read as none.
 *   "end" as a value            A string is quoted; of any other type it is written bare and refused.
 *   a value without bytes       An enumerated name "" or the reference ":" is written as nothing: alone it
 *                               is read as no value, beside others the text is refused.
 *   a value over 1024 bytes     The text is refused.
 *   real                        Has six decimals.
 *   a value that its type       It is written and, when read, missing, with what the type reports of it:
 *   would refuse                an infinite ("inf") or negative real, and structures, times and timestamps
 *                               that a client filled with negative numbers or such as are out of range.
 *   a value without a text      It is left out with a report: an enumerated value or a unit whose number
 *                               has no name.
 *   ":" in a reference's name   The name ends there when it is read.
 *   comments of a template      In front of the first service they are read as the header's: they move
 *   with a header, no section   once.
 *   comments behind the         They are not written.
 *   section of a "<! SIL" text
 *
 * Memory. A failing allocation fails its call: "MEMORY ERROR: allocation error", or the operation's own
 * message as given with it, or both in this order; where a node finds no slot,
 * "MEMORY ERROR: allocating for book keeping", then "SYSTEM ERROR: could not assign book mark". That holds
 * for each value of a text that is decoded or encoded, too: none is left out for want of memory. Nothing is
 * lost, and the session remains usable.
 *
 * Cost. Finding a service, an invocation by name or an attribute is O(1) on average, whatever the number of
 * its siblings; so is every call below that gives no cost.
 */
#ifndef JT_H
#define JT_H

#include <stddef.h>
#include <stdint.h>

/* The version of the library. */
#define JT_VERSION_MAJOR 4
#define JT_VERSION_MINOR 2
#define JT_VERSION_PATCH 0

#if defined(__GNUC__)
#define JT_API __attribute__((visibility("default")))
#else
#define JT_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Handles and records ----------------------------------------------------------------------------------
 *
 * A template is named by a number, its handle: -100 or less (-100 minus the node's slot in the session's
 * table). 0 is never a handle, so it can stand for failure. The handle of a destroyed template fails until
 * its slot is taken by a new node; then it names that node.
 */

/* A parsing session: the parser handle that every call takes first. */
typedef struct jt_parser_space jt_parser_space;

/* A node of a template tree; owned by its session. Only the chapters on what lies beneath the calls show
 * nodes. */
typedef struct jt_node jt_node;

/* A typed value; its layout belongs to its type (see Values). */
typedef struct jt_value jt_value;

/* A status of a service, an invocation or an attribute (see Statuses). */
typedef struct jt_status jt_status;

/* A type descriptor: one row of a type table. A type is identified by the address of its row. A row whose
 * five operations are null names a kind of block (a service, an invocation ...), not a type of value. The
 * session may be null; reports are then dropped. An operation that cannot allocate returns null. */
typedef struct jt_type {
  /* As SIL spells it. */
  const char *name;
  /* Text to new value. May write into the text. Null when the text is null or refused; a refusal is
   * reported as described under Values. */
  jt_value *(*eval)(jt_parser_space *space, char *text);
  /* Value to new value, equal to it. Null for null. */
  jt_value *(*copy)(jt_parser_space *space, const jt_value *value);
  /* Value to new text, one block of the heap. Null for null. */
  char *(*deval)(jt_parser_space *space, const jt_value *value);
  /* Order of two values: -1, 0, 1, or -2 for "different" where a type has no order. Two strings: negative, 0
   * or positive, the difference of the first bytes that differ. */
  int32_t (*cmp)(jt_parser_space *space, const jt_value *a, const jt_value *b);
  /* Releases a value. The result is 1, for null as well; only the two reference types refuse null: 0, with
   * "MEMORY ERROR: Invalid value, cannot dereferce NULL" for ref_invocation and
   * "MEMORY ERROR: Invalid value, cannot dereference NULL" for ref_collection. */
  int32_t (*kill)(jt_parser_space *space, jt_value *value);
} jt_type;

/* What jt_last_api_error() answers, with the words that a report of the category begins with. */
enum {
  JT_OK = 0,            /* nothing was reported */
  JT_WARNING = -3,      /* "WARNING:" something doubtful was accepted */
  JT_CALL_ERROR = -4,   /* "CALL ERROR:" the caller passed something wrong */
  JT_SYNTAX_ERROR = -5, /* "SYNTAX ERROR:" bad SIL text or bad text of a value */
  JT_MEMORY_ERROR = -6, /* "MEMORY ERROR:" an allocation failed */
  JT_SYSTEM_ERROR = -7, /* "SYSTEM ERROR:" something does not fit together inside */
  JT_UNCLASSIFIED = -8  /* any other words; only a client's own jt_error() */
};

/* Limits. */
enum {
  JT_MAX_TOKEN_LENGTH = 1024, /* bytes in a token of SIL text */
  JT_HISTORY_LENGTH = 5,      /* messages that a session remembers */
  JT_MESSAGE_SIZE = 256       /* bytes of a remembered message, its terminator included */
};

/* Node classes. Behind a header node stands the form of the header that it was read from. */
enum {
  JT_NODE_TEMPLATE = 0,        /* a template: the root, or the section of a "<? SIL" or "<! SIL" text */
  JT_NODE_SERVICE = 1,         /* child of a template */
  JT_NODE_INVOCATION = 2,      /* child of a service */
  JT_NODE_ATTRIBUTE = 3,       /* child of an invocation or of a header */
  JT_NODE_VALUE = 4,           /* child of an attribute */
  JT_NODE_HEADER = 5,          /* a header while it is being read */
  JT_NODE_HEADER_QUESTION = 6, /* "<? SIL": a section, then the services */
  JT_NODE_HEADER_PLAIN = 7,    /* "< SIL": services only */
  JT_NODE_HEADER_EXCLAIM = 8   /* "<! SIL": a section only */
};

/* ---- Sessions, errors, texts ------------------------------------------------------------------------------
 *
 * Reading messages is itself a call and clears the status: ask jt_last_api_error() first, then the texts.
 */

/* Opens a session. The label is any text, kept as a copy; null gives null. Null also without memory; there
 * is no session then to ask why. Close it with jt_close_parsing_utility(). */
JT_API jt_parser_space *jt_open_parsing_utility(const char *label);

/* Closes a session and destroys every template that is still alive in it. Texts, values and statuses that
 * were handed out remain the caller's; release them before (or with free() after). The result is always 1,
 * for null as well. It has no frame. O(nodes alive). */
JT_API int32_t jt_close_parsing_utility(jt_parser_space *space);

/* Two lines: "VERSION 4.2.00" and a notice, each with its line feed. The library's. Null for a null
 * session. */
JT_API const char *jt_get_version(jt_parser_space *space);

/* A notice of 658 characters in lines. The library's. Null for a null session. */
JT_API const char *jt_get_copyright(jt_parser_space *space);

/* "2.5.0". Not the version that a header names, which is "4.2.00". The library's. Null for a null
 * session. */
JT_API const char *jt_get_supported_language_version(jt_parser_space *space);

/* The status left by the last call: JT_OK or another of its enum; JT_OK for a null session. Neither reports
 * nor resets, so it may be asked twice. */
JT_API int32_t jt_last_api_error(jt_parser_space *space);

/* The newest message of the history; null when there is none. Resets the status and makes
 * jt_get_previous_error() begin with the newest again. The text is the session's and changes with its next
 * report; copy it to keep it. */
JT_API const char *jt_get_recent_error(jt_parser_space *space);

/* Walks the history from the newest message to the oldest: the first call after a report or after
 * jt_get_recent_error() gives the newest, each further call the one before; null when none is left. Resets
 * the status. The text is the session's, as above. */
JT_API const char *jt_get_previous_error(jt_parser_space *space);

/* Release a text that was handed out; null is accepted. The result is 1, or 0 for a null session, and
 * then the text is not released. The two calls do the same. */
JT_API int32_t jt_destroy_value_string(jt_parser_space *space, char *text);
JT_API int32_t jt_destroy_name(jt_parser_space *space, char *name);

/* Releases a status that was handed out; null is accepted. The result is 1, or 0 for a null session, and
 * then the status is not released. */
JT_API int32_t jt_destroy_status(jt_parser_space *space, jt_status *status);

/* ---- Templates --------------------------------------------------------------------------------------------
 *
 * SIL in one picture; white space is free, names are the author's:
 *
 *   < SIL 4.2.00 ASCII job-17 >             header: version, encoding, identifier; optional
 *   string Owner = "Front desk";            attributes of the header itself
 *   [ kmt_svc_scan MyScan ]                 a service: its type, its name
 *   first {                                 an invocation; the name may be missing
 *     enum_colormode Color = GRAYSCALE;     an attribute: its type, its name, its values
 *     * integer Pages = 1, 2, 3;            a star makes it non-compulsory
 *     string Note = "a \"quoted\" text";    a word, or a string with \n \t \r \b \f \v \" \\
 *   } (KMT_STATUS_COMPLETED)                a status may follow every ";", "}" and "end"
 *   end (KMT_STATUS_ERROR{TrayEmpty})       with a text; for an attribute the value overridden
 *   < /SIL >                                required with a header, refused without one
 *
 * "#" begins a comment up to the end of the line; comments are kept. A header may also begin "<? SIL" or
 * "<! SIL". A "<? SIL" header may be followed by a section "< ? > services < /? >", then by services, and
 * needs one of the two; a "<! SIL" header needs "< ! > services < /! >" and allows nothing else. The types
 * that an invocation may use are those of its service's name, where that is one of the fourteen services of
 * the type tables; else those of its service's type. The base types may be used everywhere.
 *
 * Limits in bytes: names and types 1023, values 1024, comments 1023 with their "#", the name of a service
 * and the words of the header 2047. Nothing is ever truncated. The services of a section are kept and
 * written back; the calls act on the others.
 *
 * Decoding stops at the first error of syntax, with one of
 *
 *   "SYNTAX ERROR: while parsing for \" WHAT \" at:" + the text there   WHAT: what could stand there
 *   "SYNTAX ERROR: unknown or invalid type:" + word, then the above     no type of service
 *   "WARNING: unknown attribute type:" + word, then the above           the service has no such type
 *   "SYNTAX ERROR: Trying to save multiple definitions for:" + name     the name is taken
 *   "SYNTAX ERROR: token is longer than allowable length:" + token      for a name, then the first of these
 *   "SYNTAX ERROR: token length exceeds JT_MAX_TOKEN_LENGTH (1024) + QUOTES --> " + the text there
 *                                                             a string of 1026 bytes, a word of 2048
 *   "SYNTAX ERROR: comment longer than JT_MAX_TOKEN_LENGTH -->" + the comment
 *   "SYNTAX ERROR: quotes inside a string constant at -->" + the text there, for ab"c"
 *   "SYNTAX ERROR: quotes inside a value token at -->" + the text there, for "a"bc
 *   "SYNTAX ERROR: unexpected EOF at -->" + the text there              inside quotes or after a backslash
 *   "SYNTAX ERROR: Illegal end of block at" + the text there            ends too early, or a stray "<"
 *   "SYNTAX ERROR: Illegal Block" + the text there                      a section unlike its header
 *   "SYNTAX ERROR: decoding attribute at:" + the text there             among the header's attributes
 *   "SYNTAX ERROR: Missing end marker"                   behind the section of a "<! SIL" header
 *   "MEMORY ERROR: Saving the header\n", "MEMORY ERROR: duplicating" (the text of a status), and those of
 *   create_typed_node(), create_value_node() and add_comment()
 *
 * and goes on after
 *
 *   "WARNING: version number mismatch\n"      the header names another version than 4.2.00
 *   "SYNTAX ERROR: Non ASCII encoding\n"      it names another encoding; ASCII is kept
 *   "WARNING: unknown service:" + name        twice for each invocation; it knows only the base types
 *   any report of a type about a value        see Values; a refused value is absent, a doubtful one is kept
 *
 * It stops without a report where the text is cut off: where it ends inside the end marker ("< /SIL"), inside
 * a mark of a section, or between the two marks of an empty one. So of a failed decode ask
 * jt_last_api_error() first. JT_OK means that nothing was reported, and jt_get_recent_error() is then an
 * older message or null; JT_WARNING that there was nothing but warnings of what stands before.
 */

/* A new empty template, without a header. Its handle, or 0 without memory. Destroy it with
 * jt_destroy_template(). */
JT_API int32_t jt_create_template(jt_parser_space *space);

/* Decodes a text of SIL. Its handle, or 0; a failed decode leaves no node behind. It has reported why, as
 * above, unless the text is null or cut off: then the status is JT_OK, or that of an earlier report after
 * which decoding went on. The text is not changed and not needed afterwards. O(length of the text). */
JT_API int32_t jt_decode_template(jt_parser_space *space, const char *text);

/* [template] Writes the template as SIL in one fixed layout: a new text, the caller's; null on failure. An
 * empty template without a header gives an empty text. The template is not changed, cursors included. Of a
 * "<! SIL" template only the section is written.
 *
 * The same tree gives the same text, but for its first line, which may be folded earlier: its columns are
 * counted on from where the last text that was encoded on this thread ended, by any session. Texts end at
 * column 0, all but those that end in a comment which a client added without a line feed.
 *
 * Reports and goes on: "CALL ERROR: Unknown enumerated value" for each enumerated name that is in no list
 * (it is written as it was read); "MEMORY ERROR: bad value  -- ignored" for a value without a text form (it
 * is left out). Fails: "MEMORY ERROR: while allocating for encoding", "MEMORY ERROR: while duplicating" +
 * value. O(length of the text). */
JT_API char *jt_encode_template(jt_parser_space *space, int32_t handle);

/* [template] Destroys the template, its header and its section included. The handle is free from then on.
 * O(nodes). */
JT_API int32_t jt_destroy_template(jt_parser_space *space, int32_t handle);

/* ---- Values -----------------------------------------------------------------------------------------------
 *
 * A value outside a template, named by its type. type_name is a row of the type tables at the end of this
 * header, or a base type. service_name is one of the fourteen services of those tables ("kmt_svc_scan", not
 * the name that a template gives its service); with null or anything else only the base types are found.
 * The service's types go before the base types. "SYSTEM ERROR: undefined cmp function for" stands for any
 * missing operation, that is for a type that is a kind of block.
 *
 *   type                  text read                           layout                      compared by
 *   boolean               true or false                       int32_t 1 or 0              number
 *   integer               [+ or -] digits                     int32_t                     number
 *   real                  digits [. digits]                   float                       number
 *   string                any text, the empty one too         char[]                      text, any case
 *   timestamp             YYYY/MM/DD/hh/mm/ss                 int32_t second, minute,     time
 *                                                             hour, day, month, year
 *   struct_timeofday      h:m, 0:0 to 23:59                   int32_t hour, minute        time
 *   ref_invocation        name or name:qualifier              char *name, *qualifier      equality only
 *   ref_collection        name                                char *name                  equality only
 *   enum_..., and         a name of the list                  uint32_t number             number, unsigned
 *   kmt_enum_status       any other text                      uint32_t all ones, char[]   the all ones
 *   struct_rectangle      x/y/width/height/unit               int32_t x, y, width,        width, height
 *                                                             height, unit
 *   struct_gutter         width/width/unit                    int32_t width, width,       widths
 *                                                             unit
 *   struct_magnification  AUTOISO, AUTOANA, NONE, MANISO/n,   int32_t mode, x, y          equality; MANISO
 *                         MANANA/x/y                                                      by number
 *   struct_borders        n/n/n/n/unit, alone or followed     int32_t n, n, n, n, unit,   equality of 1st,
 *                         by /FLIPV, /FLIPH, /FLIPB or        n, n, n, n, unit            2nd, 4th number
 *                         /n/n/n/n/unit
 *
 * More is read than the form shows. A number may have no digits and is then 0, so "+", ".", ":" and "//MM"
 * are values of the integer, the real, the time and the gutter. What follows the digits of a minute is
 * passed over: "23:59xyz" is 23:59. The date and the time of a timestamp may be any digits. A name has any
 * case.
 *
 * A reference is one block: its texts lie inside it. They may be read; they are neither released nor
 * replaced one by one. A client may lay out such a record itself to have it copied, compared or written;
 * only values that the library made are given to kill() and jt_destroy_value(). For ref_invocation the name
 * ends at the first ":", and a missing qualifier is the empty text.
 *
 * Written back: boolean as TRUE or FALSE, real with six decimals, other numbers without plus and leading
 * zeros, borders with both groups, an enumerated value in its list's own spelling, all others as read.
 * Numbers beyond 32 bits become the largest (or smallest) that there is. A unit is MM, IN or MIL. Each
 * service has one list of enumerated names that serves all its enum_ types; a 32-bit number with a row in
 * it is a complete value.
 *
 * Refused, with "SYNTAX ERROR: trying to evaluate the following value string as -- TYPE --:\n\n" + text:
 * what does not have the form above. Refused silently: null; the empty text, but for strings and enumerated
 * types; 19 characters that are no timestamp; a structure whose unit is a name of the list of units and
 * statuses, but none of the three; any text for an attribute whose type is a kind of block.
 *
 *   enumerated     not in the list; kept as it is (also met once by borders with an explicit second group):
 *                  "WARNING: trying to evaluate as an 'enumerated' type:" + text
 *   gutter,        an unknown unit, refused: "WARNING: trying to evaluate as an 'enumerated' type:" + unit
 *   borders
 *   gutter         a width too large, kept: "WARNING: Value outside range (25 MM)",
 *                  "WARNING: Value outside range (100 IN)", "WARNING: Value outside range (1000 MIL)"
 *   borders        a number too large, kept, once a group: "WARNING: Value outside range: (50 MM)",
 *                  "WARNING: Value outside range (200 IN)", "WARNING: Value outside range (2000 MIL)"
 *   rectangle      "SYNTAX ERROR: Value outside range", then the refusal. In MM: x to 350, y to 500, width
 *                  25 to 350, height 25 to 500; in IN four times that, in MIL forty times that.
 *                  "SYNTAX ERROR: trying to evaluate as an 'enumerated' type:" + unit, refused
 *   magnification  "SYNTAX ERROR: Value outside the range of 25-400", then the refusal
 *
 * Written without a row for its number: "CALL ERROR: Unknown enumerated value"; the text of an unknown name
 * is still given, for a mere number null. A structure's: "MEMORY ERROR: Invalid value, cannot be encoded",
 * null.
 */

/* A new value equal to the given one; release it with jt_destroy_value(). Null for null, silently.
 * "CALL ERROR: unknown type construct a copy", "SYSTEM ERROR: undefined cmp function for" + type. O(its
 * size). */
JT_API jt_value *jt_copy_value(jt_parser_space *space, const char *type_name, const jt_value *value,
                               const char *service_name);

/* -1, 0 or 1 as a comes before, equals or follows b; -2 for "different" where the type knows only equality.
 * For strings the difference of the first bytes that differ, letters folded: any number may come of them, -2
 * as well. Null comes before any value and equals null; the types that know only equality and the structures
 * give -2 for one null. Also -2: "CALL ERROR: unknown type to compare"; "SYSTEM ERROR: no compare function
 * for:" + type. 0 for a null session. */
JT_API int32_t jt_compare_value(jt_parser_space *space, const char *type_name, const jt_value *a,
                                const jt_value *b, const char *service_name);

/* The value as a new text, unquoted; the caller's. Null for null, silently.
 * "CALL ERROR: unknown type encode a value", "SYSTEM ERROR: undefined cmp function for" + type, and those
 * of the table above. Where two names share a number, the same one is always given. O(its length). */
JT_API char *jt_encode_value(jt_parser_space *space, const char *type_name, const jt_value *value,
                             const char *service_name);

/* A new value from its text, unquoted; release it with jt_destroy_value(). Null when the text is null or
 * refused, see above. "CALL ERROR: unknown type decode" + text, "SYSTEM ERROR: undefined cmp function for"
 * + type. O(length of the text). */
JT_API jt_value *jt_decode_value(jt_parser_space *space, const char *type_name, const char *text,
                                 const char *service_name);

/* Releases a value of the library's, named by the type and the service that it was made with: 1. A null value
 * gives 0 with "CALL ERROR: value is null, cannot delete", before the session is tested and without resetting
 * the status.
 * "CALL ERROR: no type construct to destroy the value", "SYSTEM ERROR: undefined cmp function for" + type:
 * the value is not released. */
JT_API int32_t jt_destroy_value(jt_parser_space *space, const char *type_name, jt_value *value,
                                const char *service_name);

/* ---- Services and invocations -----------------------------------------------------------------------------
 *
 * A template holds services in order; a service holds invocations in order, some of them named. Calls that
 * concern an invocation or its attributes act on the current invocation of the service, which is its cursor.
 * A service whose cursor has not started starts on its first invocation by itself; one that has run out does
 * not come back until jt_first_invocation(), jt_named_invocation() or jt_add_invocation() sets it. The usual
 * walk:
 *
 *   for (int32_t more = jt_first_invocation(s, job, name); more; more = jt_next_invocation(s, job, name)) ...
 */

/* [template] Appends a service without invocations. type_name: a base type ("service"), or one of the
 * fourteen services of the type tables ("kmt_svc_scan"); else "SYNTAX ERROR: unknown or invalid type:" +
 * type. The name must be new: "SYNTAX ERROR: Trying to save multiple definitions for:" + name. A null or
 * empty name makes a service that no call can name. */
JT_API int32_t jt_add_service(jt_parser_space *space, int32_t handle, const char *type_name,
                              const char *service_name);

/* [service] Destroys the service and everything in it. O(nodes below it). */
JT_API int32_t jt_delete_service(jt_parser_space *space, int32_t handle, const char *service_name);

/* [template] Whether there is such a service; no report if not. */
JT_API int32_t jt_exists_service(jt_parser_space *space, int32_t handle, const char *service_name);

/* [template] The name of the first service: a new text, the caller's. The template's cursor moves to the
 * second. Null without a report when there is none, or when it is unnamed. */
JT_API char *jt_get_first_service_name(jt_parser_space *space, int32_t handle);

/* [template] The name at the template's cursor (the first, when it has not started): a new text, the
 * caller's. The cursor moves on. Null without a report at the end, and for an unnamed service, which the
 * cursor passes. Both calls leave the cursor with "MEMORY ERROR: while allocating for(null)". */
JT_API char *jt_get_next_service_name(jt_parser_space *space, int32_t handle);

/* [service] The name of the service's type: a new text, the caller's.
 * "MEMORY ERROR:allocating for the type of" + service name. */
JT_API char *jt_get_service_type(jt_parser_space *space, int32_t handle, const char *service_name);

/* [service] Adds an unnamed invocation without attributes after the current one (at the end, when the
 * cursor has run out) and makes it the current one. Where the service has no types of its own,
 * "WARNING: unknown service:" + service name comes twice and the call succeeds. */
JT_API int32_t jt_add_invocation(jt_parser_space *space, int32_t handle, const char *service_name);

/* [service] Destroys the current invocation. The one before it becomes current; if it was the first, the
 * new first does. 0 without a report when there is none. O(nodes below it). */
JT_API int32_t jt_delete_invocation(jt_parser_space *space, int32_t handle, const char *service_name);

/* [service] Makes the first invocation current. 0 without a report when there is none. */
JT_API int32_t jt_first_invocation(jt_parser_space *space, int32_t handle, const char *service_name);

/* [service] Makes the next invocation current. 0 without a report after the last; there is no current one
 * then. */
JT_API int32_t jt_next_invocation(jt_parser_space *space, int32_t handle, const char *service_name);

/* [service] Makes the invocation of that name current; failing that, if the text is all digits, the
 * invocation of that number, counted from 1 over named and unnamed ones. Else the cursor stays:
 * "CALL ERROR: invocation does not exist:" + text. By number O(number). */
JT_API int32_t jt_named_invocation(jt_parser_space *space, int32_t handle, const char *service_name,
                                   const char *name_or_number);

/* [invocation] The name of the current invocation: a new text, the caller's. Null without a report when it
 * is unnamed. */
JT_API char *jt_get_invocation_name(jt_parser_space *space, int32_t handle, const char *service_name);

/* [invocation] Names the current invocation, which must not have a name:
 * "CALL ERROR: invocation is already named" + that name. Before the handle is looked at:
 * "CALL ERROR: no name to set" for a null or empty name. No invocation of the service may have the name,
 * the current one included:
 * "SYNTAX ERROR: duplicate naming not allowed" + name. "MEMORY ERROR: could not allocate the name" +
 * name. */
JT_API int32_t jt_set_invocation_name(jt_parser_space *space, int32_t handle, const char *service_name,
                                      const char *name);

/* [invocation] The same, and a name that the current invocation has already is replaced. */
JT_API int32_t jt_force_invocation_name(jt_parser_space *space, int32_t handle, const char *service_name,
                                        const char *name);

/* ---- Reading attributes -----------------------------------------------------------------------------------
 *
 * All act on the current invocation of the service. Names and values are walked with the cursor of the
 * invocation and of the attribute: the first-call begins, the next-call goes on, and a next-call at the
 * very start begins too. A value of a known type can be read as a typed copy or as text; of an unknown type
 * only as text. Texts are not quoted or escaped. The usual walk:
 *
 *   for (char *name = jt_get_first_attribute_name(s, job, service); name != NULL;
 *        free(name), name = jt_get_next_attribute_name(s, job, service)) ...
 */

/* [invocation] Whether there is such an attribute; no report if not. */
JT_API int32_t jt_exists_attribute(jt_parser_space *space, int32_t handle, const char *service_name,
                                   const char *attribute_name);

/* [invocation] The name of the first attribute: a new text, the caller's. The invocation's cursor moves to
 * the second. Null without a report when there is none, or when it is unnamed. */
JT_API char *jt_get_first_attribute_name(jt_parser_space *space, int32_t handle, const char *service_name);

/* [invocation] The name at the invocation's cursor: a new text, the caller's. The cursor moves on. Null
 * without a report at the end, and for an unnamed attribute, which the cursor passes. Both calls leave the
 * cursor with "MEMORY ERROR: while allocating for(null)". */
JT_API char *jt_get_next_attribute_name(jt_parser_space *space, int32_t handle, const char *service_name);

/* [attribute] A copy of the first value; release it with jt_destroy_value() and the scope of the types: the
 * name of the service if it is one of the fourteen, else its type. The attribute's cursor moves to the
 * second value, also when the call fails then. Null without a report when there is no value.
 * "CALL ERROR: unknown data type" + type name; "SYSTEM ERROR: no copy function for:" + type name. */
JT_API jt_value *jt_get_first_attribute_value(jt_parser_space *space, int32_t handle,
                                              const char *service_name, const char *attribute_name);

/* [attribute] A copy of the value at the attribute's cursor, as above. The cursor moves on once a copy was
 * tried; it stays with the two reports above. Null without a report at the end. */
JT_API jt_value *jt_get_next_attribute_value(jt_parser_space *space, int32_t handle, const char *service_name,
                                             const char *attribute_name);

/* [attribute] The first value as a new text, the caller's. The attribute's cursor moves to the second
 * value, or stays on the first when there is no text. Null without a report when there is no value.
 * "SYSTEM ERROR: no deval function for:" + type name; "MEMORY ERROR: allocating for pending value" + value;
 * those of the type (see Values). */
JT_API char *jt_get_first_attribute_value_string(jt_parser_space *space, int32_t handle,
                                                 const char *service_name, const char *attribute_name);

/* [attribute] The value at the attribute's cursor as a new text, the caller's; reports as above. The cursor
 * moves on, also over a value that its type cannot write; it stays with the two reports above. Null at the
 * end. */
JT_API char *jt_get_next_attribute_value_string(jt_parser_space *space, int32_t handle,
                                                const char *service_name, const char *attribute_name);

/* [attribute] The name of its type, as the table spells it, or as it was given when the type is unknown: a
 * new text, the caller's. "CALL ERROR: no type name": an unknown type that was added with a null name.
 * "MEMORY ERROR:allocating for the type of" + attribute name, for an unknown type
 * "MEMORY ERROR:allocating for the type of:" + type name. */
JT_API char *jt_get_attribute_type_name(jt_parser_space *space, int32_t handle, const char *service_name,
                                        const char *attribute_name);

/* [attribute] Whether its type is known; no report if not. */
JT_API int32_t jt_known_attribute_datatype(jt_parser_space *space, int32_t handle, const char *service_name,
                                           const char *attribute_name);

/* [attribute] 1 when it is non-compulsory (starred), 0 when it is compulsory or on failure. */
JT_API int32_t jt_is_attribute_non_compulsory(jt_parser_space *space, int32_t handle,
                                              const char *service_name, const char *attribute_name);

/* ---- Changing attributes ----------------------------------------------------------------------------------
 *
 * All act on the current invocation of the service. Texts and values given stay the caller's. The calls
 * that take a text or a value refuse null before the handle is looked at:
 * "CALL ERROR: value is a NULL pointer". A typed value must be of the attribute's type; nothing can check
 * that.
 */

/* [invocation] Appends a compulsory attribute without values. type_name: a type of the service, or a base
 * type. Any other is kept as unknown: "WARNING: unknown attribute type:" + type name comes twice and the
 * call succeeds; a text with such an attribute is refused by a decoder. The name must be new:
 * "SYNTAX ERROR: Trying to save multiple definitions for:" + name. */
JT_API int32_t jt_add_attribute(jt_parser_space *space, int32_t handle, const char *service_name,
                                const char *type_name, const char *attribute_name);

/* [attribute] Destroys it with its values. O(values). */
JT_API int32_t jt_delete_attribute(jt_parser_space *space, int32_t handle, const char *service_name,
                                   const char *attribute_name);

/* [attribute] Appends a value made from its text, unquoted. 0 when the type refuses it, with the reports of
 * the type (see Values), or is a kind of block, without one. For an unknown type the text itself is kept.
 * "MEMORY ERROR: allocating for a value node" + text. O(length of the text). */
JT_API int32_t jt_add_attribute_value_string(jt_parser_space *space, int32_t handle, const char *service_name,
                                             const char *attribute_name, const char *text);

/* [attribute] Makes that the only value; the old ones stay when it cannot be made. O(old values). */
JT_API int32_t jt_set_attribute_value_string(jt_parser_space *space, int32_t handle, const char *service_name,
                                             const char *attribute_name, const char *text);

/* [attribute] Appends a copy of a typed value. 0 without a report for an attribute of unknown type.
 * "SYSTEM ERROR: no copy function for:" + type name; "CALL ERROR: could not copy the value";
 * "MEMORY ERROR: allocating for a value node" + the value, if it is a string. O(its size). */
JT_API int32_t jt_add_attribute_value(jt_parser_space *space, int32_t handle, const char *service_name,
                                      const char *attribute_name, const jt_value *value);

/* [attribute] Makes that the only value; the old ones stay when it cannot be made. O(old values). */
JT_API int32_t jt_set_attribute_value(jt_parser_space *space, int32_t handle, const char *service_name,
                                      const char *attribute_name, const jt_value *value);

/* [attribute] Destroys the first value that equals the given one. "CALL ERROR: unknown data type:";
 * "SYSTEM ERROR: no cmp function for:" + attribute name; "CALL ERROR:there is no such value". O(1) on
 * average, for reals O(values). */
JT_API int32_t jt_delete_attribute_value(jt_parser_space *space, int32_t handle, const char *service_name,
                                         const char *attribute_name, const jt_value *value);

/* [attribute] The same for a value given as text. For an unknown type the texts are compared, any case. The
 * last two reports above, and "CALL ERROR: unparsable value string" + text, after those of the type. O(1)
 * on average, for reals O(values). */
JT_API int32_t jt_delete_attribute_value_string(jt_parser_space *space, int32_t handle,
                                                const char *service_name, const char *attribute_name,
                                                const char *text);

/* [attribute] Replaces the first value that equals old_value by a copy of new_value, sets the attribute's
 * status to KMT_STATUS_OVERRIDDEN and keeps the replaced value's text; the encoder writes it in the braces
 * of the status. A further override keeps only its own. A replaced value without a text form leaves no
 * text; the call succeeds with the report of the type.
 * "CALL ERROR: unknown data type:"; "SYSTEM ERROR: no cmp function for:" + attribute name;
 * "CALL ERROR: it is a compulsory attribute" + attribute name; "CALL ERROR:there is no such value";
 * "CALL ERROR: value structure is invalid". O(1) on average, for reals O(values). */
JT_API int32_t jt_override_attribute_value(jt_parser_space *space, int32_t handle, const char *service_name,
                                           const char *attribute_name, const jt_value *old_value,
                                           const jt_value *new_value);

/* [attribute] Makes it compulsory: written without a star, and refused by jt_override_attribute_value(). */
JT_API int32_t jt_set_attribute_compulsory(jt_parser_space *space, int32_t handle, const char *service_name,
                                           const char *attribute_name);

/* [attribute] Makes it non-compulsory: written with a star. */
JT_API int32_t jt_set_attribute_non_compulsory(jt_parser_space *space, int32_t handle,
                                               const char *service_name, const char *attribute_name);

/* ---- Statuses ---------------------------------------------------------------------------------------------
 *
 * Where a job stands or how it ended. A status is a uint32_t number, or all ones followed by the text of a
 * name that no number has. A client makes one with get_status(), or passes the address of a uint32_t as a
 * status:
 *
 *    1 KMT_STATUS_ABORTED           11 KMT_STATUS_FILING_PROTOCOL_NOT_RUNNING
 *    2 KMT_STATUS_UNKNOWN           12 KMT_STATUS_FILING_LOGIN_FAILURE
 *    3 KMT_STATUS_NOTINSTANTIATED   13 KMT_STATUS_FILING_DIRECTORY_LOCK_FAILURE
 *    4 KMT_STATUS_INSTANTIATED      14 KMT_STATUS_FILE_DELETE_REPLACE_FAILURE
 *    5 KMT_STATUS_COMPLETED         15 KMT_STATUS_HZM_CONTENT_FILE_TRANSFER_FAILURE
 *    6 KMT_STATUS_OVERRIDDEN        16 KMT_STATUS_FILE_TRANSFER_FAILURE
 *    7 KMT_STATUS_IGNORED           17 KMT_STATUS_MISC_FILING_ERROR
 *    8 KMT_STATUS_UNDETERMINED      18 KMT_STATUS_ERROR
 *    9 KMT_STATUS_INITIALIZED       19 KMT_STATUS_WARNING
 *   10 KMT_STATUS_UNINITIALIZED
 *
 * The units and algorithms of the base types (20 MM, 21 IN, 22 MIL, 23 IETF_SYSTEM_OBJECT_ID, 24
 * PROPRIETARY) stand in the same list and are accepted.
 */

/* [service], [invocation], [attribute] Give a service, its current invocation or an attribute of that a
 * status. Only the number is stored: all ones become a status with an empty text, written "()". A text in
 * the braces behind the status stays. The status given stays the caller's. 0 without a report for a null
 * status. Without memory "MEMORY ERROR: allocation error", then "MEMORY ERROR: allocating for status.". */
JT_API int32_t jt_set_service_status(jt_parser_space *space, int32_t handle, const char *service_name,
                                     const jt_status *status);
JT_API int32_t jt_set_invocation_status(jt_parser_space *space, int32_t handle, const char *service_name,
                                        const jt_status *status);
JT_API int32_t jt_set_attribute_status(jt_parser_space *space, int32_t handle, const char *service_name,
                                       const char *attribute_name, const jt_status *status);

/* [service], [invocation], [attribute] A copy of the status; release it with jt_destroy_status().
 * get_status_string() names it. Null without a report when there is none. */
JT_API jt_status *jt_get_service_status(jt_parser_space *space, int32_t handle, const char *service_name);
JT_API jt_status *jt_get_invocation_status(jt_parser_space *space, int32_t handle, const char *service_name);
JT_API jt_status *jt_get_attribute_status(jt_parser_space *space, int32_t handle, const char *service_name,
                                          const char *attribute_name);

/* ==== Beneath the calls: session store, memory, nodes ======================================================
 *
 * These have no frame: they do not reset the status. A null session, node or text fails without a report
 * where nothing else is said. A node must be of the session that is given with it.
 */

/* Records a report: the message, the detail directly behind it, and " ...", cut so that message and
 * detail have at most 251 bytes together; a message of 256 bytes or more is kept as its first 255 alone.
 * The status becomes the message's category, which is the result. A null detail is shown as "(null)". A
 * null message is shown as "(null)" as well; it has no category, so the status stays as it was and the
 * result is 0. A null session records nothing, and the result is 0. Message and detail may be texts of
 * the history itself. */
JT_API int32_t jt_error(jt_parser_space *space, const char *message, const char *detail);

/* Sets the status to JT_OK and leaves the history alone. */
JT_API void reset_error_status(jt_parser_space *space);

/* As jt_last_api_error(), jt_get_recent_error(), jt_get_previous_error(), but the status stays. */
JT_API int32_t get_error_status(jt_parser_space *space);
JT_API const char *get_last_error(jt_parser_space *space);
JT_API const char *get_previous_error(jt_parser_space *space);

/* As jt_open_parsing_utility() and jt_close_parsing_utility(). */
JT_API jt_parser_space *create_parser_space(const char *label);
JT_API int32_t delete_parser_space(jt_parser_space *space);

/* A zeroed block of the heap for count elements of size bytes; release it with er_free() or free(). The
 * session is only told of a failure and may be null. Null without a report for a count of 0 or a size of 0
 * or less; else "MEMORY ERROR: allocation error", for a product that is too large as well. */
JT_API void *my_calloc(jt_parser_space *space, size_t count, int32_t size);

/* Clears the first byte of a block and releases it; null is accepted. The result is always 1. */
JT_API int32_t er_free(void *block);

/* Reads a text of decimal digits only, at least one: 1, and the number (at most the largest long) in *out,
 * which must not be null. 0 for any other text and for null; *out is left alone then. */
JT_API int32_t string_to_integer(const char *text, long *out);

/* Compares two texts, A to Z like a to z: the difference of the first two bytes (unsigned) that differ, 0
 * when none do. Null comes before every text and equals null. O(length). */
JT_API int32_t lowercasecmp(const char *a, const char *b);

/* A new node of a class, not linked yet: link it with one of the add calls or destroy it with
 * destroy_node(). A null or empty name makes an unnamed node. The type is what jt_get_type() gives for
 * the class and the enclosing node, with its reports; an unknown type is accepted and its name kept.
 * Nodes with a value are made by the two calls after this: one of JT_NODE_VALUE from here has a name,
 * perhaps the name of an unknown type, and no value; reading it gives nothing, and nothing is written for
 * it. "SYSTEM ERROR: Unknown node class"; "MEMORY ERROR: Allocating for the node:" + name;
 * "MEMORY ERROR: Allocating for " + name or type name; "SYSTEM ERROR: could not assign book mark". */
JT_API jt_node *create_typed_node(jt_parser_space *space, const char *type_name, const char *node_name,
                                  int32_t node_class, jt_node *enclosing);

/* A new value node from a text, which stays as it is. For jt_unknown_type() the text itself is kept. Null
 * when the type refuses it, with the reports of the type, or is a kind of block, without one.
 * "MEMORY ERROR: allocating for a value node" + text; "MEMORY ERROR: allocating pending value:" + text;
 * "SYSTEM ERROR: could not assign book mark". */
JT_API jt_node *create_value_node(jt_parser_space *space, const jt_type *type, const char *text);

/* A new value node with a copy of the value. Null without a report for jt_unknown_type().
 * "SYSTEM ERROR: no copy function for:" + type name; "CALL ERROR: could not copy the value";
 * "MEMORY ERROR: allocating for a value node" + the value, if it is a string;
 * "SYSTEM ERROR: could not assign book mark". */
JT_API jt_node *create_value_ptr_node(jt_parser_space *space, const jt_type *type, const jt_value *value);

/* Link a child under a parent, which owns it from then on. add_child() links it at the end; so does
 * add_unique_child(), unless a child there has its name; add_index_child() links it after the cursor,
 * which then stands on the new child (a cursor that has not started counts as on the first child, one
 * that has run out as on the last). A null child is accepted: 1. A child that is linked already, here or
 * elsewhere, is taken out of its place once all checks have passed, and linked anew; add_unique_child()
 * refuses one with a name under the parent where it hangs, because it meets it there as another of its
 * name. The child's type must be the one that jt_get_type() gives under this parent, whose reports come
 * again: "SYSTEM ERROR: Trying to add an inconsistent type". A taken name, by add_unique_child():
 * "SYNTAX ERROR: Trying to save multiple definitions for:" + name. A child that is refused stays where it
 * was and whose it was. */
JT_API int32_t add_child(jt_parser_space *space, jt_node *parent, jt_node *child);
JT_API int32_t add_unique_child(jt_parser_space *space, jt_node *parent, jt_node *child);
JT_API int32_t add_index_child(jt_parser_space *space, jt_node *parent, jt_node *child);

/* Appends to the node's comment, without a separator. A comment that is to be written as SIL consists of
 * lines "# ...\n". "MEMORY ERROR: allocating for the comment:" + text. O(length of the comment). */
JT_API int32_t add_comment(jt_parser_space *space, jt_node *node, const char *text);

/* The first child of that name; null without a report when there is none. Values are found only if they
 * have a name: those of create_typed_node(). Null as well for a parent that is a value. */
JT_API jt_node *get_child(jt_parser_space *space, jt_node *parent, const char *name);

/* Destroys the node with everything below it and takes it out of its place. A node of another session is
 * refused: 0, and where it has no slot there, "CALL ERROR: trying to release non existant memory". O(nodes
 * below it). */
JT_API int32_t destroy_node(jt_parser_space *space, jt_node *node);

/* Destroys everything below the node. O(nodes below it). */
JT_API int32_t destroy_children(jt_parser_space *space, jt_node *node);

/* Destroys the child at the cursor. The one before it gets the cursor, or, when it was the first, the new
 * first. 0 without a report when the cursor has run out or there are no children. O(nodes below the
 * child). */
JT_API int32_t delete_index_child(jt_parser_space *space, jt_node *parent);

/* Destroys everything that is connected with the node: the whole template, with header and section.
 * O(nodes). */
JT_API int32_t destroy_all_nodes(jt_parser_space *space, jt_node *node);

/* Read the first child of a parent, and set the cursor on the second: its name, a copy of its value, its
 * value as a text. The results are the caller's: a name is released with jt_destroy_name() or free(), a
 * value with jt_destroy_value() and its type, a text with jt_destroy_value_string() or free(). Reports,
 * and when the cursor stays, are those of jt_get_first_service_name(), jt_get_first_attribute_value() and
 * jt_get_first_attribute_value_string(). */
JT_API char *first_child_name(jt_parser_space *space, jt_node *parent);
JT_API jt_value *first_child_value(jt_parser_space *space, jt_node *parent);
JT_API char *first_child_value_string(jt_parser_space *space, jt_node *parent);

/* Read the child at the cursor, and move the cursor on. The results are released as above. Reports, and when
 * the cursor stays, are those of jt_get_next_service_name(), jt_get_next_attribute_value() and
 * jt_get_next_attribute_value_string(). */
JT_API char *index_child_name(jt_parser_space *space, jt_node *parent);
JT_API jt_value *index_child_value(jt_parser_space *space, jt_node *parent);
JT_API char *index_child_value_string(jt_parser_space *space, jt_node *parent);

/* Moves the cursor on. Whether it stands on a child then. "CALL ERROR: empty pointer" for a null parent. */
JT_API int32_t advance_index(jt_parser_space *space, jt_node *parent);

/* Sets the cursor on the first child, or at the end when there is none: 1. For a null parent 0, with
 * "CALL ERROR: empty pointer". */
JT_API int32_t reset_index(jt_parser_space *space, jt_node *parent);

/* -100 minus the slot of a node in the session's table (its bookmark): its handle. */
JT_API int32_t bookmark_to_opaque(int32_t bookmark);

/* The node of a handle, of any class. Null with "SYSTEM ERROR: unknown opaque marker" for every other
 * number. */
JT_API jt_node *opaque_to_node(jt_parser_space *space, int32_t handle);

/* As jt_encode_template() for the root node of a template.
 * "SYSTEM ERROR: internal call for encode_template with NULL"; for a header without its three values
 * "SYSTEM ERROR: Language Version is missing", "SYSTEM ERROR: Character Encoding is missing",
 * "SYSTEM ERROR: InteractionID is missing". */
JT_API char *encode_template(jt_parser_space *space, jt_node *root);

/* As jt_decode_template(): the root node. Release it with destroy_all_nodes(). */
JT_API jt_node *decode_template_string(jt_parser_space *space, const char *text);

/* ==== Beneath the calls: types =============================================================================
 *
 * The tables are constant and sorted by name, A to Z like a to z. Each holds the types that its service has
 * of its own and the service's own row, a kind of block. The count beside it is its number of rows.
 */

/* The descriptor that stands for "unknown type": an all-ones address, never to be read through. */
static inline const jt_type *jt_unknown_type(void) { return (const jt_type *)UINTPTR_MAX; }

/* The type of that name: of the service, if it is one of the fourteen, else of the base types. Null
 * without a report when there is none. The session is not looked at. O(length of the names). The base
 * types: boolean, integer, real, string, timestamp, struct_timeofday, struct_rectangle, ref_collection,
 * ref_invocation, enum_systemidalgorithm, enum_units, kmt_enum_status; and, as kinds of blocks:
 * description, doc_object, generic_service, instance, invocation, service, sil_header, template,
 * unknown_type. */
JT_API const jt_type *get_type_from_services(jt_parser_space *space, const char *service_name,
                                             const char *type_name);

/* The type of a node that is to stand under the enclosing node:
 *
 *   class                 enclosing node                found in                         otherwise
 *   template, header      null                          base types                       null
 *   service               template                      base types, fourteen services    null
 *   invocation            service                       types of its name or its type    jt_unknown_type()
 *   attribute             invocation                    types of the service             jt_unknown_type()
 *                         other node named "header"     base types                       jt_unknown_type()
 *   value                 attribute                     the attribute's own type         null
 *
 * "SYNTAX ERROR: unknown or invalid type:" + type name where the result is null, also for any other
 * enclosing node;
 * "WARNING: unknown service:" + type name or "WARNING: unknown attribute type:" + type name where it is
 * unknown. */
JT_API const jt_type *jt_get_type(jt_parser_space *space, const char *type_name, int32_t node_class,
                                  const jt_node *enclosing);

/* A status from a name, any case; release it with kill_status() or jt_destroy_status(). A name that no
 * number has is kept: "WARNING: trying to evaluate as an 'enumerated' type:" + name.
 * "MEMORY ERROR: allocating value :" + name. O(length). */
JT_API jt_status *get_status(jt_parser_space *space, const char *name);

/* A new status equal to the given one; release it with kill_status() or jt_destroy_status(). Null for a null
 * status, silently. */
JT_API jt_status *copy_status(jt_parser_space *space, const jt_status *status);

/* The name of a status: a new text, the caller's. "CALL ERROR: Unknown enumerated value" for a number
 * without a name (null) and for a kept name (which is still given).
 * "MEMORY ERROR: allocation error while encoding" + name. */
JT_API char *get_status_string(jt_parser_space *space, const jt_status *status);

/* Releases a status; null is accepted. The result is always 1. */
JT_API int32_t kill_status(jt_parser_space *space, jt_status *status);

/* Gives any node a status, with the results and reports of jt_set_service_status(). 0 without a report for a
 * null session or node. */
JT_API int32_t set_status(jt_parser_space *space, jt_node *node, const jt_status *status);

/* The operations of struct_gutter, as its row has them: see jt_type and Values. */
JT_API jt_value *eval_gutter(jt_parser_space *space, char *text);
JT_API jt_value *copy_gutter(jt_parser_space *space, const jt_value *value);
JT_API char *deval_gutter(jt_parser_space *space, const jt_value *value);
JT_API int32_t cmp_gutter(jt_parser_space *space, const jt_value *a, const jt_value *b);
JT_API int32_t kill_gutter(jt_parser_space *space, jt_value *value);

/* The types of a service. get_type_from_services() and the decoder consult all but two, which no template
 * can reach: qf_type_tab and pport_type_tab. */
JT_API extern const jt_type desksvc_type_tab[];    /* kmt_svc_desktop */
JT_API extern const jt_type doc_type_tab[];        /* kmt_document */
JT_API extern const jt_type docman_type_tab[];     /* kmt_svc_docman */
JT_API extern const jt_type qf_type_tab[];         /* kmt_svc_quillform */
JT_API extern const jt_type email_type_tab[];      /* kmt_svc_email */
JT_API extern const jt_type fax_type_tab[];        /* kmt_svc_fax */
JT_API extern const jt_type file_type_tab[];       /* kmt_svc_file */
JT_API extern const jt_type gen_type_tab[];        /* kmt_svc_general */
JT_API extern const jt_type print_type_tab[];      /* kmt_svc_print */
JT_API extern const jt_type metadata_type_tab[];   /* kmt_dscrpt_metadata */
JT_API extern const jt_type notif_type_tab[];      /* kmt_svc_notification */
JT_API extern const jt_type ocr_type_tab[];        /* kmt_svc_ocr */
JT_API extern const jt_type pport_type_tab[];      /* kmt_svc_traikubra */
JT_API extern const jt_type ppware_type_tab[];     /* kmt_svc_paperware */
JT_API extern const jt_type scan_type_tab[];       /* kmt_svc_scan */
JT_API extern const jt_type validation_type_tab[]; /* kmt_svc_validation */

/* How many rows each of them has, in the same order. */
JT_API extern const int32_t MAX_DESKTOP_TYPES;
JT_API extern const int32_t MAX_DOC_TYPES;
JT_API extern const int32_t MAX_DOCMAN_TYPES;
JT_API extern const int32_t MAX_QF_TYPES;
JT_API extern const int32_t MAX_EMAIL_TYPES;
JT_API extern const int32_t MAX_FAX_TYPES;
JT_API extern const int32_t MAX_FILE_TYPES;
JT_API extern const int32_t MAX_GEN_TYPES;
JT_API extern const int32_t MAX_LPRNT_TYPES;
JT_API extern const int32_t MAX_METADATA_TYPES;
JT_API extern const int32_t MAX_NOTIF_TYPES;
JT_API extern const int32_t MAX_OCR_TYPES;
JT_API extern const int32_t MAX_PPORT_TYPES;
JT_API extern const int32_t MAX_PPWARE_TYPES;
JT_API extern const int32_t MAX_SCAN_TYPES;
JT_API extern const int32_t MAX_VALIDATION_TYPES;

/* A word of the client's own; null at the start. The library neither reads nor writes it. */
JT_API extern char *g_szCurrentLocale;

#ifdef __cplusplus
}
#endif

#endif
