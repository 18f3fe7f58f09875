/// \file
/// jt: reads and writes SIL, the plain-text language of job templates for multifunction office devices.
///
/// A template tells a device what to do (scan, send, file, print, fax ...) and, afterwards, records how it
/// went. jt turns the text into a tree, lets a client read and change the tree, and writes it back as text.
///
/// ```c
/// jt_parser_space *session = jt_open_parsing_utility("my program");
/// int32_t job = jt_decode_template(session, text);
/// if (job == 0) puts(jt_last_api_error(session) ? jt_get_recent_error(session) : "the text is cut off");
/// // read and change it
/// char *result = jt_encode_template(session, job);
/// free(result);
/// jt_close_parsing_utility(session);
/// ```
///
/// One header, valid C11 and C++. Its chapters: handles and records; sessions, errors, texts; templates;
/// values; services and invocations; reading attributes; changing attributes; statuses; elements; changing elements;
/// catalogue; source. The last three chapters export what lies beneath these calls, reports, nodes and types, for
/// tools that look closer;
/// most clients never need them.

// The comments are read by people and by Doxygen. `\errors` lists what is recorded, `\owner` who releases
// a result and how, `\cost` what a call costs where that is not O(1). `\of_template`, `\of_service`,
// `\of_invocation`, `\of_attribute` and `\of_element` stand for the arguments that a call begins with, and
// say how deep the frame below resolves; what the frame records is not repeated.

/// \defgroup conventions What holds for every call
///
/// Read this once; the single calls do not repeat it.
///
/// **Session.** A session ("parser space") owns everything that is made in it. It belongs to one thread at a
/// time. Any number of sessions may be used on as many threads: they share nothing, but for the column at
/// which the last text that was encoded on the same thread ended (see jt_encode_template()).
///
/// **Result.** 1 for success and 0 for failure, or a pointer and null, unless a call says otherwise. A
/// failing call leaves the template as it was.
///
/// **Texts.** Bytes up to a NUL. What a call is given it only reads, and only during the call; what it keeps
/// is a copy. Names (of services, invocations, attributes, types, enumerated values) are the same whatever
/// the case of the letters A to Z. No result depends on the locale.
///
/// **Null.** A null name matches nothing and is shown as `(null)` in messages. Other null arguments are
/// refused or accepted as each call says; none is ever read through.
///
/// **Ownership.** A result of type `char *` or `jt_status *` is one block of the heap and the caller's to
/// release: jt_destroy_value_string(), jt_destroy_name(), jt_destroy_status() and `free` all do. A
/// `jt_value *` may own further blocks and goes with jt_destroy_value(). A `const char *` result is the
/// library's; do not release it.
///
/// **Frame.** The calls of the first chapters check in this order and stop at the first failure:
///
/// | depth | what is wrong | what is recorded |
/// |---|---|---|
/// | session | the parser handle is null | nothing, in any session; the call fails at once |
/// | session | a listener of the session is being told something | `CALL ERROR: made from inside a listener` |
/// | arguments | those of the call itself | as the call says; the status was set to 0 before |
/// | template | the handle is not live | `SYSTEM ERROR: unknown opaque marker`, then the next |
/// | | | `CALL ERROR: not a valid handle` |
/// | template | it is not of a template | `CALL ERROR: not a template` |
/// | element | the handle is not live | as for a template, of which it need not be the handle |
/// | element | the call is for other kinds | `CALL ERROR: not for this kind of element` |
/// | service | there is none of that name | `CALL ERROR: does not exist:` + service name |
/// | invocation | none is current | `CALL ERROR: no current invocation` |
/// | attribute | there is none of that name | `CALL ERROR: does not exist:` + attribute name |
///
/// **Status and history.** A report is a message, a detail directly behind it, and ` ...`; its first words
/// are its category. The status is the category of the last report made during the last call, 0 when there
/// was none. A call may succeed with a status (a warning), and a few fail without one. The history keeps the
/// newest five reports of the session and is never cleared. "+ name" below means: with the name as detail.
///
/// **Cursors.** They live in the tree. A template remembers a position among its services, a service among
/// its invocations (its current invocation), an invocation among its attributes, an attribute among its
/// values. So two walks over the same children disturb each other. A cursor has not started (a fresh node:
/// reading begins at the first child), stands on a child, or has run out. Appending a child to a node whose
/// cursor has not started or has run out sets it on the new child. Destroying the child under it moves it to
/// the one before, or, when there is none, to the one after. After a decode every cursor stands on the first
/// child.
///
/// **Reading back.** A text from jt_encode_template() is read as the same services, invocations, attributes,
/// values, statuses and comments, in the same order. The exceptions:
///
/// - **Names set by a client** are written as they are. One with blanks, punctuation or quotes, or beyond the
///   limits of a text, is refused or read as something else; so is an attribute of unknown type.
/// - **Comments added by a client** are written as they are, also where they are no lines of comment.
/// - **Statuses, and the texts in their braces,** are written as they are, without the quotes that they may
///   have been read with. Of a text of several words only the last one is read; a status of several words is
///   refused, and so is a text with punctuation or the text `end`. An empty status is read as none.
/// - **The value end:** a string is quoted; of any other type it is written bare and refused.
/// - **A value without bytes:** an enumerated name `""` or the reference `:` is written as nothing: alone it
///   is read as no value, beside others the text is refused.
/// - **A value over 1024 bytes:** the text is refused.
/// - **A real** has six decimals.
/// - **A value that its type would refuse** is written and, when read, missing, with what the type reports of
///   it: an infinite (`inf`) or negative real, and structures, times and timestamps that a client filled with
///   negative numbers or such as are out of range.
/// - **A value without a text** is left out with a report: an enumerated value or a unit whose number has no
///   name.
/// - **A colon in a reference's name:** the name ends there when it is read.
/// - **Comments of a template with a header and no section:** in front of the first service they are read as
///   the header's: they move once.
/// - **Comments behind the section** of a `<! SIL` text are not written.
///
/// **Memory.** A failing allocation fails its call: `MEMORY ERROR: allocation error`, or the operation's own
/// message as given with it, or both in this order; where a node finds no slot,
/// `MEMORY ERROR: allocating for book keeping`, then `SYSTEM ERROR: could not assign book mark`. That holds
/// for each value of a text that is decoded or encoded, too: none is left out for want of memory. Nothing is
/// lost, and the session remains usable.
///
/// **Cost.** Finding a service, an invocation by name or an attribute is O(1) on average, whatever the
/// number of its siblings; so is every call below that gives no cost.
#ifndef JT_H
#define JT_H

#include <stddef.h>
#include <stdint.h>

/// The version of the library: its first number.
#define JT_VERSION_MAJOR 4
/// Its second number.
#define JT_VERSION_MINOR 3
/// Its third number.
#define JT_VERSION_PATCH 0

/// \cond
#if defined(__GNUC__)
#define JT_API __attribute__((visibility("default")))
#else
#define JT_API
#endif
/// \endcond

#ifdef __cplusplus
extern "C" {
#endif

// ---- Handles and records ----------------------------------------------------------------------------------

/// \defgroup records Handles and records
///
/// A template is named by a number, its handle: -100 or less (-100 minus the node's slot in the session's
/// table). 0 is never a handle, so it can stand for failure. The handle of a destroyed template fails until
/// its slot is taken by a new node; then it names that node.
/// \{

/// A parsing session: the parser handle that every call takes first.
typedef struct jt_parser_space jt_parser_space;

/// A node of a template tree; owned by its session. Only the chapters on what lies beneath the calls show
/// nodes.
typedef struct jt_node jt_node;

/// A typed value; its layout belongs to its type (see \ref values).
typedef struct jt_value jt_value;

/// A status of a service, an invocation or an attribute (see \ref statuses).
typedef struct jt_status jt_status;

/// A type descriptor: one row of a type table. A type is identified by the address of its row. A row whose
/// five operations are null names a kind of block (a service, an invocation ...), not a type of value. The
/// session may be null; reports are then dropped. An operation that cannot allocate returns null.
typedef struct jt_type {
  /// As SIL spells it.
  const char *name;
  /// Text to new value. May write into the text. Null when the text is null or refused; a refusal is
  /// reported as described under \ref values.
  jt_value *(*eval)(jt_parser_space *space, char *text);
  /// Value to new value, equal to it. Null for null.
  jt_value *(*copy)(jt_parser_space *space, const jt_value *value);
  /// Value to new text, one block of the heap. Null for null.
  char *(*deval)(jt_parser_space *space, const jt_value *value);
  /// Order of two values: -1, 0, 1, or -2 for "different" where a type has no order. Two strings: negative, 0
  /// or positive, the difference of the first bytes that differ.
  int32_t (*cmp)(jt_parser_space *space, const jt_value *a, const jt_value *b);
  /// Releases a value. The result is 1, for null as well; only the two reference types refuse null: 0, with
  /// `MEMORY ERROR: Invalid value, cannot dereferce NULL` for ref_invocation and
  /// `MEMORY ERROR: Invalid value, cannot dereference NULL` for ref_collection.
  int32_t (*kill)(jt_parser_space *space, jt_value *value);
} jt_type;

/// What jt_last_api_error() answers, with the words that a report of the category begins with.
enum {
  JT_OK = 0,             ///< Nothing was reported.
  JT_WARNING = -3,       ///< `WARNING:` something doubtful was accepted.
  JT_CALL_ERROR = -4,    ///< `CALL ERROR:` the caller passed something wrong.
  JT_SYNTAX_ERROR = -5,  ///< `SYNTAX ERROR:` bad SIL text or bad text of a value.
  JT_MEMORY_ERROR = -6,  ///< `MEMORY ERROR:` an allocation failed.
  JT_SYSTEM_ERROR = -7,  ///< `SYSTEM ERROR:` something does not fit together inside.
  JT_UNCLASSIFIED = -8   ///< Any other words; only a client's own jt_error().
};

/// Limits.
enum {
  JT_MAX_TOKEN_LENGTH = 1024,  ///< Bytes in a token of SIL text.
  JT_HISTORY_LENGTH = 5,       ///< Messages that a session remembers.
  JT_MESSAGE_SIZE = 256        ///< Bytes of a remembered message, its terminator included.
};

/// Node classes. Behind a header node stands the form of the header that it was read from.
enum {
  JT_NODE_TEMPLATE = 0,         ///< A template: the root, or the section of a `<? SIL` or `<! SIL` text.
  JT_NODE_SERVICE = 1,          ///< Child of a template.
  JT_NODE_INVOCATION = 2,       ///< Child of a service.
  JT_NODE_ATTRIBUTE = 3,        ///< Child of an invocation or of a header.
  JT_NODE_VALUE = 4,            ///< Child of an attribute.
  JT_NODE_HEADER = 5,           ///< A header while it is being read.
  JT_NODE_HEADER_QUESTION = 6,  ///< `<? SIL`: a section, then the services.
  JT_NODE_HEADER_PLAIN = 7,     ///< `< SIL`: services only.
  JT_NODE_HEADER_EXCLAIM = 8    ///< `<! SIL`: a section only.
};

/// \}

// ---- Sessions, errors, texts ------------------------------------------------------------------------------

/// \defgroup sessions Sessions, errors, texts
///
/// Reading messages is itself a call and clears the status: ask jt_last_api_error() first, then the texts.
/// \{

/// Opens a session.
///
/// \param label  Any text, kept as a copy; null gives null.
/// \return The session; null also without memory, when there is no session to ask why.
/// \owner The caller: jt_close_parsing_utility().
JT_API jt_parser_space *jt_open_parsing_utility(const char *label);

/// Where a session takes the memory that it keeps. The functions are called during calls on the session, on the
/// thread of those calls, and may not use the session themselves.
typedef struct jt_allocator {
  /// `sizeof(jt_allocator)`: the record may grow in a later version.
  size_t size;
  /// Handed to each of the functions; may be null.
  void *context;
  /// A block of so many bytes, one at least, aligned as that of `malloc`; null when there is none.
  void *(*allocate)(void *context, size_t bytes);
  /// A block, never null, with another size, its content kept; null when there is none, and then the block is as
  /// it was.
  void *(*reallocate)(void *context, void *block, size_t bytes);
  /// Takes back a block, never null.
  void (*release)(void *context, void *block);
} jt_allocator;

/// Opens a session with memory of its own: what it keeps (templates with all that is in them, the session itself)
/// and the text that is being encoded come from the allocator and have all gone back to it when
/// jt_close_parsing_utility() returns. What is handed out, and what lives only as long as a call, still comes from
/// `malloc`, so that `free` releases it; so does what a client's own type makes. An allocator that has nothing to
/// give makes calls fail as any failing allocation does.
///
/// \param label      Any text, kept as a copy; null gives null.
/// \param allocator  Copied, but for what its context points to, which must outlive the session; null stands for
///                   the heap of the C library. One whose size is too small, or that lacks a function, gives null.
/// \return The session; null also without memory, when there is no session to ask why.
/// \owner The caller: jt_close_parsing_utility().
JT_API jt_parser_space *jt_open_session(const char *label, const jt_allocator *allocator);

/// Closes a session and destroys every template that is still alive in it. No frame.
///
/// \param space  The session; null is accepted.
/// \return Always 1.
/// \owner Texts, values and statuses that were handed out remain the caller's; release them before (or with
/// `free` after).
/// \cost O(nodes alive).
JT_API int32_t jt_close_parsing_utility(jt_parser_space *space);

/// The version of the language and of the first calls: two lines, `VERSION 4.2.00` and a notice, each with its line
/// feed. It stays as it is; #JT_VERSION_MINOR counts what has come since.
///
/// \param space  The session.
/// \return The text; null for a null session.
/// \owner The library.
JT_API const char *jt_get_version(jt_parser_space *space);

/// A notice of 658 characters in lines.
///
/// \param space  The session.
/// \return The text; null for a null session.
/// \owner The library.
JT_API const char *jt_get_copyright(jt_parser_space *space);

/// `2.5.0`. Not the version that a header names, which is `4.2.00`.
///
/// \param space  The session.
/// \return The text; null for a null session.
/// \owner The library.
JT_API const char *jt_get_supported_language_version(jt_parser_space *space);

/// The status left by the last call. Neither reports nor resets, so it may be asked twice.
///
/// \param space  The session.
/// \return #JT_OK or another of its enum; #JT_OK for a null session.
JT_API int32_t jt_last_api_error(jt_parser_space *space);

/// The newest message of the history. Resets the status and makes jt_get_previous_error() begin with the
/// newest again.
///
/// \param space  The session.
/// \return The text; null when there is none.
/// \owner The session, which changes it with its next report; copy it to keep it.
JT_API const char *jt_get_recent_error(jt_parser_space *space);

/// Walks the history from the newest message to the oldest: the first call after a report or after
/// jt_get_recent_error() gives the newest, each further call the one before. Resets the status.
///
/// \param space  The session.
/// \return The text; null when none is left.
/// \owner The session, which changes it with its next report; copy it to keep it.
JT_API const char *jt_get_previous_error(jt_parser_space *space);

/// Releases a text that was handed out.
///
/// \param space  The session.
/// \param text   The text; null is accepted.
/// \return 1; 0 only for a null session, and then the text is not released.
JT_API int32_t jt_destroy_value_string(jt_parser_space *space, char *text);

/// Releases a name that was handed out. The same as jt_destroy_value_string().
///
/// \param space  The session.
/// \param name   The name; null is accepted.
/// \return 1; 0 only for a null session, and then the name is not released.
JT_API int32_t jt_destroy_name(jt_parser_space *space, char *name);

/// Releases a status that was handed out.
///
/// \param space   The session.
/// \param status  The status; null is accepted.
/// \return 1; 0 only for a null session, and then the status is not released.
JT_API int32_t jt_destroy_status(jt_parser_space *space, jt_status *status);

/// \}

// ---- Templates --------------------------------------------------------------------------------------------

/// \defgroup templates Templates
///
/// SIL in one picture; white space is free, names are the author's:
///
/// ```text
/// < SIL 4.2.00 ASCII job-17 >             header: version, encoding, identifier; optional
/// string Owner = "Front desk";            attributes of the header itself
/// [ kmt_svc_scan MyScan ]                 a service: its type, its name
/// first {                                 an invocation; the name may be missing
///   enum_colormode Color = GRAYSCALE;     an attribute: its type, its name, its values
///   * integer Pages = 1, 2, 3;            a star makes it non-compulsory
///   string Note = "a \"quoted\" text";    a word, or a string with \\ \n \t \r \b \f \v \"
/// } (KMT_STATUS_COMPLETED)                a status may follow every ";", "}" and "end"
/// end (KMT_STATUS_ERROR{TrayEmpty})       with a text; for an attribute the value overridden
/// < /SIL >                                required with a header, refused without one
/// ```
///
/// `#` begins a comment up to the end of the line; comments are kept. A header may also begin `<? SIL` or
/// `<! SIL`. A `<? SIL` header may be followed by a section `< ? > services < /? >`, then by services, and
/// needs one of the two; a `<! SIL` header needs `< ! > services < /! >` and allows nothing else. The types
/// that an invocation may use are those of its service's name, where that is one of the fourteen services of
/// the type tables; else those of its service's type. The base types may be used everywhere.
///
/// Limits in bytes: names and types 1023, values 1024, comments 1023 with their `#`, the name of a service
/// and the words of the header 2047. Nothing is ever truncated. The services of a section are kept and
/// written back; the calls act on the others, and on those of the section by the handle of jt_section().
///
/// Decoding stops at the first error of syntax, with one of these and, where the second column says so, the
/// text at that place behind it:
///
/// | message | + | when |
/// |---|---|---|
/// | `SYNTAX ERROR: while parsing for " WHAT " at:` | text | WHAT is what could stand there |
/// | `SYNTAX ERROR: unknown or invalid type:` | word | no type of service; then the first of these |
/// | `WARNING: unknown attribute type:` | word | the service has no such type; then the first of these |
/// | `SYNTAX ERROR: Trying to save multiple definitions for:` | name | the name is taken |
/// | `SYNTAX ERROR: token is longer than allowable length:` | token | a long name; then the first of these |
/// | `SYNTAX ERROR: token length exceeds JT_MAX_TOKEN_LENGTH (1024) + QUOTES --> ` | text | see below |
/// | `SYNTAX ERROR: comment longer than JT_MAX_TOKEN_LENGTH -->` | comment | a long comment |
/// | `SYNTAX ERROR: quotes inside a string constant at -->` | text | `ab"c"` |
/// | `SYNTAX ERROR: quotes inside a value token at -->` | text | `"a"bc` |
/// | `SYNTAX ERROR: unexpected EOF at -->` | text | inside quotes or after a backslash |
/// | `SYNTAX ERROR: Illegal end of block at` | text | it ends too early, or a stray `<` |
/// | `SYNTAX ERROR: Illegal Block` | text | a section unlike its header |
/// | `SYNTAX ERROR: decoding attribute at:` | text | among the header's attributes |
/// | `SYNTAX ERROR: Missing end marker` | | behind the section of a `<! SIL` header |
/// | `MEMORY ERROR: Saving the header\n` | | without memory |
/// | `MEMORY ERROR: duplicating` | | the text of a status; without memory |
///
/// and those of create_typed_node(), create_value_node() and add_comment(). Too long for QUOTES is a string
/// of 1026 bytes or a word of 2048. Decoding goes on after
///
/// | message | + | when |
/// |---|---|---|
/// | `WARNING: version number mismatch\n` | | the header names another version than `4.2.00` |
/// | `SYNTAX ERROR: Non ASCII encoding\n` | | it names another encoding; ASCII is kept |
/// | `WARNING: unknown service:` | name | twice for each invocation; it knows only the base types |
/// | any report of a type about a value | | see \ref values; a refused value is absent, a doubtful one kept |
///
/// It stops without a report where the text is cut off: where it ends inside the end marker (`< /SIL`),
/// inside a mark of a section, or between the two marks of an empty one. So of a failed decode ask
/// jt_last_api_error() first. #JT_OK means that nothing was reported, and jt_get_recent_error() is then an
/// older message or null; #JT_WARNING that there was nothing but warnings of what stands before.
/// \{

/// A new empty template, without a header.
///
/// \param space  The session.
/// \return Its handle; 0 without memory.
/// \owner The session; jt_destroy_template() destroys it earlier.
JT_API int32_t jt_create_template(jt_parser_space *space);

/// Decodes a text of SIL. A failed decode leaves no node behind.
///
/// \param space  The session.
/// \param text   The text; not changed and not needed afterwards.
/// \return The handle of the template; 0 on failure.
/// \errors Why, as above, unless the text is null or cut off: then the status is #JT_OK, or that of an
/// earlier report after which decoding went on.
/// \owner The session; jt_destroy_template() destroys it earlier.
/// \cost O(length of the text).
JT_API int32_t jt_decode_template(jt_parser_space *space, const char *text);

/// Writes the template as SIL in one fixed layout. An empty template without a header gives an empty text.
/// The template is not changed, cursors included. Of a `<! SIL` template only the section is written.
///
/// The same tree gives the same text, but for its first line, which may be folded earlier: its columns are
/// counted on from where the last text that was encoded on this thread ended, by any session. Texts end at
/// column 0, all but those that end in a comment which a client added without a line feed.
///
/// \of_template
/// \return A new text; null on failure.
/// \errors Reports and goes on: `CALL ERROR: Unknown enumerated value` for each enumerated name that is in
/// no list (it is written as it was read); `MEMORY ERROR: bad value  -- ignored` for a value without a text
/// form (it is left out). Fails: `MEMORY ERROR: while allocating for encoding`,
/// `MEMORY ERROR: while duplicating` + value.
/// \owner The caller: jt_destroy_value_string() or `free`.
/// \cost O(length of the text).
JT_API char *jt_encode_template(jt_parser_space *space, int32_t handle);

/// Destroys the template, its header and its section included. The handle is free from then on.
///
/// \of_template
/// \return 1; 0 on failure.
/// \cost O(nodes).
JT_API int32_t jt_destroy_template(jt_parser_space *space, int32_t handle);

/// \}

// ---- Values -----------------------------------------------------------------------------------------------

/// \defgroup values Values
///
/// A value outside a template, named by its type. In these calls, type_name is a row of the type tables, or
/// a base type. service_name is one of the fourteen services of those tables (`kmt_svc_scan`, not the name
/// that a template gives its service); with null or anything else only the base types are found. The
/// service's types go before the base types. `SYSTEM ERROR: undefined cmp function for` stands for any
/// missing operation, that is for a type that is a kind of block.
///
/// | type | text read | layout | compared by |
/// |---|---|---|---|
/// | boolean | `true` or `false` | `int32_t` 1 or 0 | number |
/// | integer | [+ or -] digits | `int32_t` | number |
/// | real | digits [. digits] | `float` | number |
/// | string | any text, the empty one too | `char[]` | text, any case |
/// | timestamp | `YYYY/MM/DD/hh/mm/ss` | `int32_t` second, minute, hour, day, month, year | time |
/// | struct_timeofday | `h:m`, `0:0` to `23:59` | `int32_t` hour, minute | time |
/// | ref_invocation | `name` or `name:qualifier` | `char *name, *qualifier` | equality only |
/// | ref_collection | `name` | `char *name` | equality only |
/// | enum_..., kmt_enum_status | a name of the list | `uint32_t` number | number, unsigned |
/// | the same | any other text | `uint32_t` all ones, then `char[]` | the all ones |
/// | struct_rectangle | `x/y/width/height/unit` | `int32_t` x, y, width, height, unit | width, height |
/// | struct_gutter | `width/width/unit` | `int32_t` width, width, unit | widths |
/// | struct_magnification | `AUTOISO`, `AUTOANA`, `NONE` | `int32_t` mode, 0, 0 | equality only |
/// | the same | `MANISO/n`, `MANANA/x/y` | `int32_t` mode, x, y | equality; MANISO by number |
/// | struct_borders | `n/n/n/n/unit` | `int32_t` n, n, n, n, unit, and once more | 1st, 2nd, 4th: equality |
/// | the same | that, and `/FLIPV`, `/FLIPH`, `/FLIPB` or `/n/n/n/n/unit` | the same | the same |
///
/// More is read than the form shows. A number may have no digits and is then 0, so `+`, `.`, `:` and `//MM`
/// are values of the integer, the real, the time and the gutter. What follows the digits of a minute is
/// passed over: `23:59xyz` is 23:59. The date and the time of a timestamp may be any digits. A name has any
/// case.
///
/// A reference is one block: its texts lie inside it. They may be read; they are neither released nor
/// replaced one by one. A client may lay out such a record itself to have it copied, compared or written;
/// only values that the library made are given to jt_type::kill and jt_destroy_value(). For ref_invocation
/// the name ends at the first `:`, and a missing qualifier is the empty text.
///
/// Written back: boolean as `TRUE` or `FALSE`, real with six decimals, other numbers without plus and leading
/// zeros, borders with both groups, an enumerated value in its list's own spelling, all others as read.
/// Numbers beyond 32 bits become the largest (or smallest) that there is. A unit is `MM`, `IN` or `MIL`. Each
/// service has one list of enumerated names that serves all its `enum_` types; a 32-bit number with a row in
/// it is a complete value.
///
/// Refused, with `SYNTAX ERROR: trying to evaluate the following value string as -- TYPE --:\n\n` + text:
/// what does not have the form above. Refused silently: null; the empty text, but for strings and enumerated
/// types; 19 characters that are no timestamp; a structure whose unit is a name of the list of units and
/// statuses, but none of the three; any text for an attribute whose type is a kind of block.
///
/// | type | what | message |
/// |---|---|---|
/// | enumerated | unknown; kept | <code>WARNING: trying to evaluate as an 'enumerated' type:</code> + text |
/// | borders | an explicit second group; kept | the same, once |
/// | gutter, borders | an unknown unit; refused | the same, with the unit |
/// | gutter | a width too large; kept | `WARNING: Value outside range (25 MM)` |
/// | | | `WARNING: Value outside range (100 IN)` |
/// | | | `WARNING: Value outside range (1000 MIL)` |
/// | borders | a number too large; kept, once a group | `WARNING: Value outside range: (50 MM)` |
/// | | | `WARNING: Value outside range (200 IN)` |
/// | | | `WARNING: Value outside range (2000 MIL)` |
/// | rectangle | outside its range; refused | `SYNTAX ERROR: Value outside range`, then the refusal |
/// | rectangle | its unit; refused | <code>SYNTAX ERROR: trying to evaluate as an 'enumerated' type:</code> |
/// | magnification | refused | `SYNTAX ERROR: Value outside the range of 25-400`, then the refusal |
///
/// Behind the message of a rectangle's unit stands the unit. The range of a rectangle in MM: x to 350, y to
/// 500, width 25 to 350, height 25 to 500; in IN four times that, in MIL forty times that.
///
/// Written without a row for its number: `CALL ERROR: Unknown enumerated value`; the text of an unknown name
/// is still given, for a mere number null. A structure's: `MEMORY ERROR: Invalid value, cannot be encoded`,
/// null.
/// \{

/// A new value equal to the given one.
///
/// \param space         The session.
/// \param type_name     Its type.
/// \param value         The value; null gives null, silently.
/// \param service_name  The service that the type belongs to, or null.
/// \return The copy; null on failure.
/// \errors `CALL ERROR: unknown type construct a copy`; `SYSTEM ERROR: undefined cmp function for` + type.
/// \owner The caller: jt_destroy_value().
/// \cost O(its size).
JT_API jt_value *jt_copy_value(jt_parser_space *space, const char *type_name, const jt_value *value,
                               const char *service_name);

/// Compares two values. Null comes before any value and equals null; the types that know only equality and
/// the structures give -2 for one null.
///
/// \param space         The session.
/// \param type_name     The type of both.
/// \param a             One value.
/// \param b             The other.
/// \param service_name  The service that the type belongs to, or null.
/// \return -1, 0 or 1 as a comes before, equals or follows b; -2 for "different" where the type knows only
/// equality, and on failure. For strings the difference of the first bytes that differ, letters folded: any
/// number may come of them, -2 as well. 0 for a null session.
/// \errors `CALL ERROR: unknown type to compare`; `SYSTEM ERROR: no compare function for:` + type.
JT_API int32_t jt_compare_value(jt_parser_space *space, const char *type_name, const jt_value *a,
                                const jt_value *b, const char *service_name);

/// The value as a text, unquoted. Where two names share a number, the same one is always given.
///
/// \param space         The session.
/// \param type_name     Its type.
/// \param value         The value; null gives null, silently.
/// \param service_name  The service that the type belongs to, or null.
/// \return A new text; null on failure.
/// \errors `CALL ERROR: unknown type encode a value`; `SYSTEM ERROR: undefined cmp function for` + type;
/// those of the table above.
/// \owner The caller: jt_destroy_value_string() or `free`.
/// \cost O(its length).
JT_API char *jt_encode_value(jt_parser_space *space, const char *type_name, const jt_value *value,
                             const char *service_name);

/// A new value from its text.
///
/// \param space         The session.
/// \param type_name     Its type.
/// \param text          The text, unquoted.
/// \param service_name  The service that the type belongs to, or null.
/// \return The value; null when the text is null or refused, see above, and on failure.
/// \errors `CALL ERROR: unknown type decode` + text; `SYSTEM ERROR: undefined cmp function for` + type; those
/// of the table above.
/// \owner The caller: jt_destroy_value().
/// \cost O(length of the text).
JT_API jt_value *jt_decode_value(jt_parser_space *space, const char *type_name, const char *text,
                                 const char *service_name);

/// Releases a value of the library's.
///
/// \param space         The session.
/// \param type_name     Its type, as when it was made.
/// \param value         The value.
/// \param service_name  The service, as when it was made.
/// \return 1; 0 on failure, and then the value is not released.
/// \errors `CALL ERROR: value is null, cannot delete` comes first, before the session is tested and without
/// resetting the status. `CALL ERROR: no type construct to destroy the value`;
/// `SYSTEM ERROR: undefined cmp function for` + type.
JT_API int32_t jt_destroy_value(jt_parser_space *space, const char *type_name, jt_value *value,
                                const char *service_name);

/// \}

// ---- Services and invocations -----------------------------------------------------------------------------

/// \defgroup services Services and invocations
///
/// A template holds services in order; a service holds invocations in order, some of them named. Calls that
/// concern an invocation or its attributes act on the current invocation of the service, which is its
/// cursor. A service whose cursor has not started starts on its first invocation by itself; one that has run
/// out does not come back until jt_first_invocation(), jt_named_invocation() or jt_add_invocation() sets it.
/// The usual walk:
///
/// ```c
/// for (int32_t more = jt_first_invocation(s, job, name); more; more = jt_next_invocation(s, job, name)) ...
/// ```
/// \{

/// Appends a service without invocations.
///
/// \of_template
/// \param type_name     A base type (`service`), or one of the fourteen services of the type tables
///                      (`kmt_svc_scan`).
/// \param service_name  Must be new. A null or empty name makes a service that no call can name.
/// \return 1; 0 on failure.
/// \errors `SYNTAX ERROR: unknown or invalid type:` + type;
/// `SYNTAX ERROR: Trying to save multiple definitions for:` + name.
JT_API int32_t jt_add_service(jt_parser_space *space, int32_t handle, const char *type_name,
                              const char *service_name);

/// Destroys the service and everything in it.
///
/// \of_service
/// \return 1; 0 on failure.
/// \cost O(nodes below it).
JT_API int32_t jt_delete_service(jt_parser_space *space, int32_t handle, const char *service_name);

/// Whether there is such a service. No report if not.
///
/// \of_template
/// \param service_name  Its name.
/// \return 1 or 0.
JT_API int32_t jt_exists_service(jt_parser_space *space, int32_t handle, const char *service_name);

/// The name of the first service. The template's cursor moves to the second.
///
/// \of_template
/// \return A new text; null without a report when there is no service, or when it is unnamed.
/// \errors `MEMORY ERROR: while allocating for(null)`; the cursor stays.
/// \owner The caller: jt_destroy_name() or `free`.
JT_API char *jt_get_first_service_name(jt_parser_space *space, int32_t handle);

/// The name at the template's cursor (the first, when it has not started). The cursor moves on.
///
/// \of_template
/// \return A new text; null without a report at the end, and for an unnamed service, which the cursor passes.
/// \errors `MEMORY ERROR: while allocating for(null)`; the cursor stays.
/// \owner The caller: jt_destroy_name() or `free`.
JT_API char *jt_get_next_service_name(jt_parser_space *space, int32_t handle);

/// The name of the service's type.
///
/// \of_service
/// \return A new text; null on failure.
/// \errors `MEMORY ERROR:allocating for the type of` + service name.
/// \owner The caller: jt_destroy_name() or `free`.
JT_API char *jt_get_service_type(jt_parser_space *space, int32_t handle, const char *service_name);

/// Adds an unnamed invocation without attributes after the current one (at the end, when the cursor has run
/// out) and makes it the current one.
///
/// \of_service
/// \return 1; 0 on failure.
/// \errors `WARNING: unknown service:` + service name comes twice, and the call succeeds, where the service
/// has no types of its own.
JT_API int32_t jt_add_invocation(jt_parser_space *space, int32_t handle, const char *service_name);

/// Destroys the current invocation. The one before it becomes current; if it was the first, the new first
/// does.
///
/// \of_service
/// \return 1; 0 on failure, and without a report when there is none.
/// \cost O(nodes below it).
JT_API int32_t jt_delete_invocation(jt_parser_space *space, int32_t handle, const char *service_name);

/// Makes the first invocation current.
///
/// \of_service
/// \return 1; 0 on failure, and without a report when there is none.
JT_API int32_t jt_first_invocation(jt_parser_space *space, int32_t handle, const char *service_name);

/// Makes the next invocation current. After the last there is no current one.
///
/// \of_service
/// \return 1; 0 on failure, and without a report after the last.
JT_API int32_t jt_next_invocation(jt_parser_space *space, int32_t handle, const char *service_name);

/// Makes the invocation of that name current; failing that, if the text is all digits, the invocation of that
/// number, counted from 1 over named and unnamed ones. Else the cursor stays.
///
/// \of_service
/// \param name_or_number  The name, or the digits.
/// \return 1; 0 on failure.
/// \errors `CALL ERROR: invocation does not exist:` + text.
/// \cost By number O(number).
JT_API int32_t jt_named_invocation(jt_parser_space *space, int32_t handle, const char *service_name,
                                   const char *name_or_number);

/// The name of the current invocation.
///
/// \of_invocation
/// \return A new text; null on failure, and without a report when it is unnamed.
/// \owner The caller: jt_destroy_name() or `free`.
JT_API char *jt_get_invocation_name(jt_parser_space *space, int32_t handle, const char *service_name);

/// Names the current invocation, which must not have a name.
///
/// \of_invocation
/// \param name  The name. No invocation of the service may have it, the current one included.
/// \return 1; 0 on failure.
/// \errors Before the handle is looked at: `CALL ERROR: no name to set` for a null or empty name. Then
/// `CALL ERROR: invocation is already named` + that name;
/// `SYNTAX ERROR: duplicate naming not allowed` + name; `MEMORY ERROR: could not allocate the name` + name.
JT_API int32_t jt_set_invocation_name(jt_parser_space *space, int32_t handle, const char *service_name,
                                      const char *name);

/// Names the current invocation; a name that it has already is replaced.
///
/// \of_invocation
/// \param name  The name. No invocation of the service may have it, the current one included.
/// \return 1; 0 on failure.
/// \errors As jt_set_invocation_name(), but for the first of those after the handle.
JT_API int32_t jt_force_invocation_name(jt_parser_space *space, int32_t handle, const char *service_name,
                                        const char *name);

/// \}

// ---- Reading attributes -----------------------------------------------------------------------------------

/// \defgroup attributes Reading attributes
///
/// All act on the current invocation of the service. Names and values are walked with the cursor of the
/// invocation and of the attribute: the first-call begins, the next-call goes on, and a next-call at the
/// very start begins too. A value of a known type can be read as a typed copy or as text; of an unknown type
/// only as text. Texts are not quoted or escaped. The usual walk:
///
/// ```c
/// for (char *name = jt_get_first_attribute_name(s, job, service); name != NULL;
///      free(name), name = jt_get_next_attribute_name(s, job, service)) ...
/// ```
/// \{

/// Whether there is such an attribute. No report if not.
///
/// \of_invocation
/// \param attribute_name  Its name.
/// \return 1 or 0.
JT_API int32_t jt_exists_attribute(jt_parser_space *space, int32_t handle, const char *service_name,
                                   const char *attribute_name);

/// The name of the first attribute. The invocation's cursor moves to the second.
///
/// \of_invocation
/// \return A new text; null without a report when there is no attribute, or when it is unnamed.
/// \errors `MEMORY ERROR: while allocating for(null)`; the cursor stays.
/// \owner The caller: jt_destroy_name() or `free`.
JT_API char *jt_get_first_attribute_name(jt_parser_space *space, int32_t handle, const char *service_name);

/// The name at the invocation's cursor. The cursor moves on.
///
/// \of_invocation
/// \return A new text; null without a report at the end, and for an unnamed attribute, which the cursor
/// passes.
/// \errors `MEMORY ERROR: while allocating for(null)`; the cursor stays.
/// \owner The caller: jt_destroy_name() or `free`.
JT_API char *jt_get_next_attribute_name(jt_parser_space *space, int32_t handle, const char *service_name);

/// A copy of the first value. The attribute's cursor moves to the second value, also when the call fails
/// then.
///
/// \of_attribute
/// \return The copy; null on failure, and without a report when there is no value.
/// \errors `CALL ERROR: unknown data type` + type name; `SYSTEM ERROR: no copy function for:` + type name.
/// \owner The caller: jt_destroy_value() with the scope of the types: the name of the service if it is one of
/// the fourteen, else its type.
/// \cost O(its size).
JT_API jt_value *jt_get_first_attribute_value(jt_parser_space *space, int32_t handle,
                                              const char *service_name, const char *attribute_name);

/// A copy of the value at the attribute's cursor. The cursor moves on once a copy was tried; it stays with
/// the two reports.
///
/// \of_attribute
/// \return The copy; null on failure, and without a report at the end.
/// \errors As jt_get_first_attribute_value().
/// \owner As jt_get_first_attribute_value().
/// \cost O(its size).
JT_API jt_value *jt_get_next_attribute_value(jt_parser_space *space, int32_t handle, const char *service_name,
                                             const char *attribute_name);

/// The first value as a text. The attribute's cursor moves to the second value, or stays on the first when
/// there is no text.
///
/// \of_attribute
/// \return A new text; null on failure, and without a report when there is no value.
/// \errors `SYSTEM ERROR: no deval function for:` + type name;
/// `MEMORY ERROR: allocating for pending value` + value; those of the type (see \ref values).
/// \owner The caller: jt_destroy_value_string() or `free`.
/// \cost O(its length).
JT_API char *jt_get_first_attribute_value_string(jt_parser_space *space, int32_t handle,
                                                 const char *service_name, const char *attribute_name);

/// The value at the attribute's cursor as a text. The cursor moves on, also over a value that its type cannot
/// write; it stays with the first two reports.
///
/// \of_attribute
/// \return A new text; null on failure, and without a report at the end.
/// \errors As jt_get_first_attribute_value_string().
/// \owner The caller: jt_destroy_value_string() or `free`.
/// \cost O(its length).
JT_API char *jt_get_next_attribute_value_string(jt_parser_space *space, int32_t handle,
                                                const char *service_name, const char *attribute_name);

/// The name of its type, as the table spells it, or as it was given when the type is unknown.
///
/// \of_attribute
/// \return A new text; null on failure.
/// \errors `CALL ERROR: no type name`: an unknown type that was added with a null name.
/// `MEMORY ERROR:allocating for the type of` + attribute name, for an unknown type
/// `MEMORY ERROR:allocating for the type of:` + type name.
/// \owner The caller: jt_destroy_name() or `free`.
JT_API char *jt_get_attribute_type_name(jt_parser_space *space, int32_t handle, const char *service_name,
                                        const char *attribute_name);

/// Whether its type is known. No report if not.
///
/// \of_attribute
/// \return 1 or 0; 0 on failure, too.
JT_API int32_t jt_known_attribute_datatype(jt_parser_space *space, int32_t handle, const char *service_name,
                                           const char *attribute_name);

/// Whether it is non-compulsory (starred).
///
/// \of_attribute
/// \return 1 when it is, 0 when it is compulsory or on failure.
JT_API int32_t jt_is_attribute_non_compulsory(jt_parser_space *space, int32_t handle,
                                              const char *service_name, const char *attribute_name);

/// \}

// ---- Changing attributes ----------------------------------------------------------------------------------

/// \defgroup changes Changing attributes
///
/// All act on the current invocation of the service. Texts and values given stay the caller's. The calls
/// that take a text or a value refuse null before the handle is looked at:
/// `CALL ERROR: value is a NULL pointer`. A typed value must be of the attribute's type; nothing can check
/// that.
/// \{

/// Appends a compulsory attribute without values.
///
/// \of_invocation
/// \param type_name       A type of the service, or a base type. Any other is kept as unknown; a text with
///                        such an attribute is refused by a decoder.
/// \param attribute_name  Must be new.
/// \return 1; 0 on failure.
/// \errors `WARNING: unknown attribute type:` + type name comes twice, and the call succeeds;
/// `SYNTAX ERROR: Trying to save multiple definitions for:` + name.
JT_API int32_t jt_add_attribute(jt_parser_space *space, int32_t handle, const char *service_name,
                                const char *type_name, const char *attribute_name);

/// Destroys the attribute with its values.
///
/// \of_attribute
/// \return 1; 0 on failure.
/// \cost O(values).
JT_API int32_t jt_delete_attribute(jt_parser_space *space, int32_t handle, const char *service_name,
                                   const char *attribute_name);

/// Appends a value made from its text. For an unknown type the text itself is kept.
///
/// \of_attribute
/// \param text  The text, unquoted; not null.
/// \return 1; 0 on failure, and when the type refuses the text, or is a kind of block, then without a report.
/// \errors Those of the type (see \ref values); `MEMORY ERROR: allocating for a value node` + text.
/// \cost O(length of the text).
JT_API int32_t jt_add_attribute_value_string(jt_parser_space *space, int32_t handle, const char *service_name,
                                             const char *attribute_name, const char *text);

/// Makes a value from its text the only one; the old ones stay when it cannot be made.
///
/// \of_attribute
/// \param text  The text, unquoted; not null.
/// \return 1; 0 on failure.
/// \errors As jt_add_attribute_value_string().
/// \cost O(old values).
JT_API int32_t jt_set_attribute_value_string(jt_parser_space *space, int32_t handle, const char *service_name,
                                             const char *attribute_name, const char *text);

/// Appends a copy of a typed value.
///
/// \of_attribute
/// \param value  The value; not null.
/// \return 1; 0 on failure, without a report for an attribute of unknown type.
/// \errors `SYSTEM ERROR: no copy function for:` + type name; `CALL ERROR: could not copy the value`;
/// `MEMORY ERROR: allocating for a value node` + the value, if it is a string.
/// \cost O(its size).
JT_API int32_t jt_add_attribute_value(jt_parser_space *space, int32_t handle, const char *service_name,
                                      const char *attribute_name, const jt_value *value);

/// Makes a copy of a typed value the only one; the old ones stay when it cannot be made.
///
/// \of_attribute
/// \param value  The value; not null.
/// \return 1; 0 on failure, without a report for an attribute of unknown type.
/// \errors As jt_add_attribute_value().
/// \cost O(old values).
JT_API int32_t jt_set_attribute_value(jt_parser_space *space, int32_t handle, const char *service_name,
                                      const char *attribute_name, const jt_value *value);

/// Destroys the first value that equals the given one.
///
/// \of_attribute
/// \param value  The value to look for; not null.
/// \return 1; 0 on failure.
/// \errors `CALL ERROR: unknown data type:`; `SYSTEM ERROR: no cmp function for:` + attribute name;
/// `CALL ERROR:there is no such value`.
/// \cost O(1) on average, whatever the other values and in whatever order they came and go; O(log values) for
/// each removal among equal ones. O(values) for a type of the client's own, and for reals while one is no
/// number.
JT_API int32_t jt_delete_attribute_value(jt_parser_space *space, int32_t handle, const char *service_name,
                                         const char *attribute_name, const jt_value *value);

/// Destroys the first value that equals the one given as text. For an unknown type the texts are compared,
/// any case.
///
/// \of_attribute
/// \param text  The text of the value to look for, unquoted; not null.
/// \return 1; 0 on failure.
/// \errors `SYSTEM ERROR: no cmp function for:` + attribute name; `CALL ERROR:there is no such value`;
/// `CALL ERROR: unparsable value string` + text, after those of the type.
/// \cost O(1) on average, whatever the other values and in whatever order they came and go; O(log values) for
/// each removal among equal ones. O(values) for a type of the client's own, and for reals while one is no
/// number.
JT_API int32_t jt_delete_attribute_value_string(jt_parser_space *space, int32_t handle,
                                                const char *service_name, const char *attribute_name,
                                                const char *text);

/// Replaces the first value that equals the old one by a copy of the new one, sets the attribute's status to
/// KMT_STATUS_OVERRIDDEN and keeps the replaced value's text; the encoder writes it in the braces of the
/// status. A further override keeps only its own. A replaced value without a text form leaves no text; the
/// call succeeds with the report of the type.
///
/// \of_attribute
/// \param old_value  The value to look for; not null.
/// \param new_value  What takes its place; not null.
/// \return 1; 0 on failure.
/// \errors `CALL ERROR: unknown data type:`; `SYSTEM ERROR: no cmp function for:` + attribute name;
/// `CALL ERROR: it is a compulsory attribute` + attribute name; `CALL ERROR:there is no such value`;
/// `CALL ERROR: value structure is invalid`.
/// \cost O(1) on average, whatever the other values and in whatever order they came and go; O(log values) for
/// each removal among equal ones. O(values) for a type of the client's own, and for reals while one is no
/// number.
JT_API int32_t jt_override_attribute_value(jt_parser_space *space, int32_t handle, const char *service_name,
                                           const char *attribute_name, const jt_value *old_value,
                                           const jt_value *new_value);

/// Makes the attribute compulsory: written without a star, and refused by jt_override_attribute_value().
///
/// \of_attribute
/// \return 1; 0 on failure.
JT_API int32_t jt_set_attribute_compulsory(jt_parser_space *space, int32_t handle, const char *service_name,
                                           const char *attribute_name);

/// Makes the attribute non-compulsory: written with a star.
///
/// \of_attribute
/// \return 1; 0 on failure.
JT_API int32_t jt_set_attribute_non_compulsory(jt_parser_space *space, int32_t handle,
                                               const char *service_name, const char *attribute_name);

/// \}

// ---- Statuses ---------------------------------------------------------------------------------------------

/// \defgroup statuses Statuses
///
/// Where a job stands or how it ended. A status is a `uint32_t` number, or all ones followed by the text of a
/// name that no number has. A client makes one with get_status(), or passes the address of a `uint32_t` as a
/// status:
///
/// | number | name |
/// |---:|---|
/// | 1 | KMT_STATUS_ABORTED |
/// | 2 | KMT_STATUS_UNKNOWN |
/// | 3 | KMT_STATUS_NOTINSTANTIATED |
/// | 4 | KMT_STATUS_INSTANTIATED |
/// | 5 | KMT_STATUS_COMPLETED |
/// | 6 | KMT_STATUS_OVERRIDDEN |
/// | 7 | KMT_STATUS_IGNORED |
/// | 8 | KMT_STATUS_UNDETERMINED |
/// | 9 | KMT_STATUS_INITIALIZED |
/// | 10 | KMT_STATUS_UNINITIALIZED |
/// | 11 | KMT_STATUS_FILING_PROTOCOL_NOT_RUNNING |
/// | 12 | KMT_STATUS_FILING_LOGIN_FAILURE |
/// | 13 | KMT_STATUS_FILING_DIRECTORY_LOCK_FAILURE |
/// | 14 | KMT_STATUS_FILE_DELETE_REPLACE_FAILURE |
/// | 15 | KMT_STATUS_HZM_CONTENT_FILE_TRANSFER_FAILURE |
/// | 16 | KMT_STATUS_FILE_TRANSFER_FAILURE |
/// | 17 | KMT_STATUS_MISC_FILING_ERROR |
/// | 18 | KMT_STATUS_ERROR |
/// | 19 | KMT_STATUS_WARNING |
///
/// The units and algorithms of the base types (20 MM, 21 IN, 22 MIL, 23 IETF_SYSTEM_OBJECT_ID, 24
/// PROPRIETARY) stand in the same list and are accepted.
///
/// Of a status that is given only the number is stored: all ones become a status with an empty text, written
/// `()`. A text in the braces behind the status stays. Without memory `MEMORY ERROR: allocation error`, then
/// `MEMORY ERROR: allocating for status.`
/// \{

/// Gives a service a status.
///
/// \of_service
/// \param status  The status, which stays the caller's; null fails without a report.
/// \return 1; 0 on failure.
JT_API int32_t jt_set_service_status(jt_parser_space *space, int32_t handle, const char *service_name,
                                     const jt_status *status);

/// Gives the current invocation of a service a status.
///
/// \of_invocation
/// \param status  The status, which stays the caller's; null fails without a report.
/// \return 1; 0 on failure.
JT_API int32_t jt_set_invocation_status(jt_parser_space *space, int32_t handle, const char *service_name,
                                        const jt_status *status);

/// Gives an attribute of the current invocation a status.
///
/// \of_attribute
/// \param status  The status, which stays the caller's; null fails without a report.
/// \return 1; 0 on failure.
JT_API int32_t jt_set_attribute_status(jt_parser_space *space, int32_t handle, const char *service_name,
                                       const char *attribute_name, const jt_status *status);

/// A copy of the status of a service; get_status_string() names it.
///
/// \of_service
/// \return The copy; null on failure, and without a report when there is none.
/// \owner The caller: jt_destroy_status() or `free`.
JT_API jt_status *jt_get_service_status(jt_parser_space *space, int32_t handle, const char *service_name);

/// A copy of the status of the current invocation; get_status_string() names it.
///
/// \of_invocation
/// \return The copy; null on failure, and without a report when there is none.
/// \owner The caller: jt_destroy_status() or `free`.
JT_API jt_status *jt_get_invocation_status(jt_parser_space *space, int32_t handle, const char *service_name);

/// A copy of the status of an attribute; get_status_string() names it.
///
/// \of_attribute
/// \return The copy; null on failure, and without a report when there is none.
/// \owner The caller: jt_destroy_status() or `free`.
JT_API jt_status *jt_get_attribute_status(jt_parser_space *space, int32_t handle, const char *service_name,
                                          const char *attribute_name);

/// \}

// ---- Elements ---------------------------------------------------------------------------------------------

/// \defgroup elements Elements
///
/// Everything in a template by handle: its header, its section, the services, invocations, attributes and
/// values of all of them, with their comments, statuses and the texts behind these. Each is an element and
/// has a handle like a template's. These calls change nothing; those of the next chapter do. The state of a walk is the handle that the
/// caller holds, so walks do not disturb each other, and no cursor moves:
///
/// ```c
/// for (int32_t child = jt_first_child(s, job); child != 0; child = jt_next_sibling(s, child)) ...
/// ```
///
/// A handle lives as long as its element: until that, or one that it is in, is deleted or destroyed, or, for
/// a value, until it is replaced by a call that names the attribute. Then it fails, until its slot is taken by a
/// new node. A header and a section are no children of their template; jt_header() and jt_section() find them.
/// Elements of any depth are told apart by jt_element_kind().
/// \{

/// What jt_element_flags() adds up.
enum {
  JT_ELEMENT_NON_COMPULSORY = 1,  ///< An attribute with a star.
  JT_ELEMENT_TYPE_UNKNOWN = 2,    ///< Of its type nothing is known but the name.
  JT_ELEMENT_OVERRIDDEN = 4       ///< There is a text behind its status, see jt_element_status_text().
};

/// The template that an element belongs to.
///
/// \of_element
/// \return The template's handle, of the template itself too; 0 on failure. Of a node that is linked to no
/// template, the one at the top.
JT_API int32_t jt_root(jt_parser_space *space, int32_t element);

/// The header of a template: an element of kind #JT_NODE_HEADER_QUESTION, #JT_NODE_HEADER_PLAIN or
/// #JT_NODE_HEADER_EXCLAIM, whose children are the attributes that the author gave it. Its version and its
/// identifier are not among them; its encoding is always `ASCII`.
///
/// \of_template
/// \return Its handle; 0 on failure, and without a report when there is no header, as for every section.
JT_API int32_t jt_header(jt_parser_space *space, int32_t handle);

/// The section of a template: an element of kind #JT_NODE_TEMPLATE, whose children are its services.
/// The calls on services, invocations, attributes and statuses take its handle for that of a template. Of the
/// others, jt_destroy_template() destroys the whole template that it is in, and jt_encode_template() fails
/// with `SYSTEM ERROR: Language Version is missing`: what is written is the whole.
///
/// \of_template
/// \return Its handle; 0 on failure, and without a report when there is no section, as for every section.
JT_API int32_t jt_section(jt_parser_space *space, int32_t handle);

/// The version of a header: the word behind `SIL`.
///
/// \of_template
/// \return A new text; null on failure, and without a report when there is no header.
/// \errors `MEMORY ERROR: allocation error`.
/// \owner The caller: jt_destroy_value_string() or `free`.
/// \cost O(its length).
JT_API char *jt_header_version(jt_parser_space *space, int32_t handle);

/// The identifier of a header: its last word.
///
/// \of_template
/// \return A new text; null on failure, and without a report when there is no header.
/// \errors `MEMORY ERROR: allocation error`.
/// \owner The caller: jt_destroy_value_string() or `free`.
/// \cost O(its length).
JT_API char *jt_header_identifier(jt_parser_space *space, int32_t handle);

/// The element that holds another one: a value's attribute, an attribute's invocation or header, an
/// invocation's service, a service's template or section, and the template of a section or header.
///
/// \of_element
/// \return Its handle; 0 on failure, and without a report for a template.
JT_API int32_t jt_parent(jt_parser_space *space, int32_t element);

/// The first of the elements that one holds.
///
/// \of_element
/// \return Its handle; 0 on failure, and without a report when there is none.
JT_API int32_t jt_first_child(jt_parser_space *space, int32_t element);

/// The element behind another one below the same parent.
///
/// \of_element
/// \return Its handle; 0 on failure, and without a report behind the last one, and for a template, its header
/// and its section.
JT_API int32_t jt_next_sibling(jt_parser_space *space, int32_t element);

/// The first child of that name.
///
/// \of_element
/// \param name  The name. Null or empty: no child has it.
/// \return Its handle; 0 on failure, and without a report when there is none.
JT_API int32_t jt_find_child(jt_parser_space *space, int32_t element, const char *name);

/// What an element is.
///
/// \of_element
/// \return One of the JT_NODE_ numbers; -1 on failure.
JT_API int32_t jt_element_kind(jt_parser_space *space, int32_t element);

/// The name of a service, an invocation or an attribute.
///
/// \of_element
/// \return A new text; null on failure, and without a report when the element has no name: an unnamed
/// invocation, a value (but for one of create_typed_node()), a template, its header and its section.
/// \errors `MEMORY ERROR: allocation error`.
/// \owner The caller: jt_destroy_name() or `free`.
/// \cost O(its length).
JT_API char *jt_element_name(jt_parser_space *space, int32_t element);

/// The name of an element's type, as the type tables spell it or, where it is unknown, as it was given. A
/// value has that of its attribute. An invocation has that of the service whose types its attributes have;
/// where no such service is known, the name of its own service.
///
/// \of_element
/// \return A new text; null on failure, and without a report where there is no name.
/// \errors `MEMORY ERROR: allocation error`.
/// \owner The caller: jt_destroy_value_string() or `free`.
/// \cost O(its length).
JT_API char *jt_element_type(jt_parser_space *space, int32_t element);

/// A value as a text, without quotes and escapes: of a known type as it is written, else as it was given.
///
/// \of_element
/// \return A new text; null on failure, and without a report for all other elements and for a value that has
/// none, see create_typed_node().
/// \errors `SYSTEM ERROR: no deval function for:` + type name; `MEMORY ERROR: allocating for pending value` +
/// value; those of the type (see \ref values).
/// \owner The caller: jt_destroy_value_string() or `free`.
/// \cost O(its length).
JT_API char *jt_element_value_text(jt_parser_space *space, int32_t element);

/// The comment of an element, as it was read: lines that begin with `#` and end with a line feed. With what
/// add_comment() appended.
///
/// \of_element
/// \return A new text; null on failure, and without a report when there is no comment.
/// \errors `MEMORY ERROR: allocation error`.
/// \owner The caller: jt_destroy_value_string() or `free`.
/// \cost O(its length).
JT_API char *jt_element_comment(jt_parser_space *space, int32_t element);

/// A copy of the status of a service, an invocation or an attribute.
///
/// \of_element
/// \return The copy; null on failure, and without a report when there is no status.
/// \errors `MEMORY ERROR: allocation error`.
/// \owner The caller: jt_destroy_status() or `free`.
JT_API jt_status *jt_element_status(jt_parser_space *space, int32_t element);

/// The text behind a status: what stood in its braces, or the value that jt_override_attribute_value() has
/// replaced.
///
/// \of_element
/// \return A new text; null on failure, and without a report when there is none.
/// \errors `MEMORY ERROR: allocation error`.
/// \owner The caller: jt_destroy_value_string() or `free`.
/// \cost O(its length).
JT_API char *jt_element_status_text(jt_parser_space *space, int32_t element);

/// What else there is to know of an element.
///
/// \of_element
/// \return The sum of the JT_ELEMENT_ numbers that hold; -1 on failure.
JT_API int32_t jt_element_flags(jt_parser_space *space, int32_t element);

/// \}

// ---- Changing elements ------------------------------------------------------------------------------------

/// \defgroup element_changes Changing elements
///
/// Whatever may be set of an element, by its handle, in header and section too. What is set here is written by
/// jt_encode_template() and read back as the same; what would not be is refused with
/// `CALL ERROR: would not be read back:` + text. A **word** is one or more bytes, none of them white space, a quote,
/// `\` or `#`, or one of `[]{}()<>=,;*!$%&^?|`; it is not `end`. A refused call changes nothing, and a call moves no
/// cursor but as it is said there.
///
/// ```c
/// int32_t copies = jt_find_child(s, jt_first_child(s, jt_find_child(s, job, "Scan")), "Copies");
/// if (jt_set_element_value_text(s, jt_first_child(s, copies), "2") == 0) puts(jt_get_recent_error(s));
/// ```
/// \{

/// Gives an element a comment in place of the one that it has.
///
/// \of_element
/// \param comment  Lines that begin with `#` and end with a line feed each, of at most 1023 bytes without that, and
///                 without carriage return, vertical tab and form feed. Null or empty: no comment.
/// \return 1; 0 on failure.
/// \errors `CALL ERROR: not for this kind of element` for a value, which has none;
/// `CALL ERROR: would not be read back:` + comment; `MEMORY ERROR: allocation error`, then
/// `MEMORY ERROR: allocating for the comment:` + comment.
/// \cost O(its length).
JT_API int32_t jt_set_element_comment(jt_parser_space *space, int32_t element, const char *comment);

/// Names a service, an invocation or an attribute. It is found by that name from then on and keeps its place.
///
/// \of_element
/// \param name  A word of at most 1023 bytes, which no other child of its parent has. For a service that has
///              invocations, one under which they know the same types: that of a service of the type tables stands
///              for other types than another one.
/// \return 1; 0 on failure.
/// \errors Before the handle is looked at: `CALL ERROR: no name to set` for a null or empty name. Then
/// `CALL ERROR: not for this kind of element`; `CALL ERROR: would not be read back:` + name;
/// `SYNTAX ERROR: duplicate naming not allowed` + name; `MEMORY ERROR: could not allocate the name` + name.
JT_API int32_t jt_set_element_name(jt_parser_space *space, int32_t element, const char *name);

/// Gives a service, an invocation or an attribute the status of that name. A text behind the status that it has
/// stays.
///
/// \of_element
/// \param name  The name, any case. One that no number has is kept as it is. It must be read back as one token: a
///              word of at most 2047 bytes, `end`, or one sign of punctuation other than `)`. Null: no status, and no
///              text behind one.
/// \return 1; 0 on failure.
/// \errors <code>WARNING: trying to evaluate as an 'enumerated' type:</code> + name, and the call succeeds, for a
/// name that no number has. `CALL ERROR: not for this kind of element`; `CALL ERROR: would not be read back:` + name;
/// `MEMORY ERROR: allocation error`, then `MEMORY ERROR: allocating value :` + name.
JT_API int32_t jt_set_element_status(jt_parser_space *space, int32_t element, const char *name);

/// Gives the status of a service, an invocation or an attribute a text: the reason, or for an attribute the value
/// that was overridden.
///
/// \of_element
/// \param text  A word of at most 2047 bytes. For an attribute also `end` and one sign of punctuation other than `}`;
///              for an invocation and an attribute also the empty text. Null: no text.
/// \return 1; 0 on failure.
/// \errors `CALL ERROR: not for this kind of element`; `CALL ERROR: there is no status`, and neither is one with an
/// empty text; `CALL ERROR: would not be read back:` + text; `MEMORY ERROR: allocation error`.
JT_API int32_t jt_set_element_status_text(jt_parser_space *space, int32_t element, const char *text);

/// Makes an attribute non-compulsory, that is gives it a star, or makes it compulsory.
///
/// \of_element
/// \param non_compulsory  0: compulsory; else non-compulsory.
/// \return 1; 0 on failure.
/// \errors `CALL ERROR: not for this kind of element`.
JT_API int32_t jt_set_element_non_compulsory(jt_parser_space *space, int32_t element, int32_t non_compulsory);

/// Puts another value in the place of a value, which keeps its handle.
///
/// \of_element
/// \param text  The text of the new value, unquoted; not null. Of an unknown type the text itself is kept.
/// \return 1; 0 on failure, and when the type refuses the text.
/// \errors Before the handle is looked at: `CALL ERROR: value is a NULL pointer`. Then
/// `CALL ERROR: not for this kind of element`; those of the type (see \ref values);
/// `MEMORY ERROR: allocation error`.
/// \cost O(length of the text).
JT_API int32_t jt_set_element_value_text(jt_parser_space *space, int32_t element, const char *text);

/// Appends a value to an attribute.
///
/// \of_element
/// \param text  The text of the value, unquoted; not null. Of an unknown type the text itself is kept.
/// \return The handle of the value; 0 on failure, and when the type refuses the text, or is a kind of block, then
/// without a report.
/// \errors Before the handle is looked at: `CALL ERROR: value is a NULL pointer`. Then
/// `CALL ERROR: not for this kind of element`; those of the type (see \ref values);
/// `MEMORY ERROR: allocating for a value node` + text.
/// \cost O(length of the text).
JT_API int32_t jt_add_element_value_text(jt_parser_space *space, int32_t element, const char *text);

/// Destroys a service, an invocation, an attribute or a value with everything in it. A cursor that stands on it moves
/// as by the calls on services, invocations and attributes.
///
/// \of_element
/// \return 1; 0 on failure.
/// \errors `CALL ERROR: not for this kind of element`.
/// \cost O(nodes below it).
JT_API int32_t jt_remove_element(jt_parser_space *space, int32_t element);

/// Gives a template a header of a form, or changes the one that it has, which keeps its attributes, or takes it away.
/// A form with a section makes an empty one where there is none. The plain form, and taking the header away, drop a
/// section, which must be empty.
///
/// \of_template
/// \param form        #JT_NODE_HEADER_PLAIN, #JT_NODE_HEADER_QUESTION or #JT_NODE_HEADER_EXCLAIM; 0 for no header, and
///                    then the words are not looked at.
/// \param version     The version, a word of at most 2047 bytes; not null. The language's is `4.2.00`; a decoder warns
///                    of any other.
/// \param identifier  The identifier, a word of at most 2047 bytes; not null.
/// \return 1; 0 on failure.
/// \errors Before the handle is looked at: `CALL ERROR: value is a NULL pointer`. Then `CALL ERROR: not a template` for
/// a section, too; `CALL ERROR: form of header does not allow it` for no such form, for #JT_NODE_HEADER_EXCLAIM while
/// the template has services, and for any without a section while that has services;
/// `CALL ERROR: would not be read back:` + word; `MEMORY ERROR: Saving the header\n`, after others.
/// \cost O(attributes) for taking it away.
JT_API int32_t jt_set_header(jt_parser_space *space, int32_t handle, int32_t form, const char *version,
                             const char *identifier);

/// Gives the header of a template another version.
///
/// \of_template
/// \param version  A word of at most 2047 bytes; not null.
/// \return 1; 0 on failure.
/// \errors Before the handle is looked at: `CALL ERROR: value is a NULL pointer`. Then
/// `CALL ERROR: there is no header`; `CALL ERROR: would not be read back:` + version;
/// `MEMORY ERROR: Saving the header\n`, after others.
JT_API int32_t jt_set_header_version(jt_parser_space *space, int32_t handle, const char *version);

/// Gives the header of a template another identifier.
///
/// \of_template
/// \param identifier  A word of at most 2047 bytes; not null.
/// \return 1; 0 on failure.
/// \errors As jt_set_header_version().
JT_API int32_t jt_set_header_identifier(jt_parser_space *space, int32_t handle, const char *identifier);

/// Appends a compulsory attribute without values to the header of a template. jt_add_element_value_text() gives it
/// values, and jt_remove_element() destroys it.
///
/// \of_template
/// \param type_name       A base type.
/// \param attribute_name  A word of at most 1023 bytes that no attribute of the header has.
/// \return The handle of the attribute; 0 on failure.
/// \errors Before the handle is looked at: `CALL ERROR: no name to set` for a null or empty name. Then
/// `CALL ERROR: there is no header`; `CALL ERROR: would not be read back:` + name;
/// `SYNTAX ERROR: unknown or invalid type:` + type; `SYNTAX ERROR: Trying to save multiple definitions for:` + name.
JT_API int32_t jt_add_header_attribute(jt_parser_space *space, int32_t handle, const char *type_name,
                                       const char *attribute_name);

/// Gives a template an empty section. jt_set_header() has done so already, unless jt_remove_section() took it away or
/// the text had none.
///
/// \of_template
/// \return The handle of the section, see jt_section(); 0 on failure.
/// \errors `CALL ERROR: not a template` for a section, too; `CALL ERROR: there is no header`;
/// `CALL ERROR: form of header does not allow it` for a plain header, and where there is a section.
JT_API int32_t jt_add_section(jt_parser_space *space, int32_t handle);

/// Destroys the section of a template with everything in it.
///
/// \of_template
/// \return 1; 0 on failure, and without a report when there is none.
/// \errors `CALL ERROR: not a template` for a section, too; `CALL ERROR: form of header does not allow it` where the
/// text would be refused without one: a `<! SIL` header needs it, and so does a `<? SIL` header in front of no services.
/// \cost O(nodes below it).
JT_API int32_t jt_remove_section(jt_parser_space *space, int32_t handle);

/// \}

// ---- Catalogue --------------------------------------------------------------------------------------------

/// \defgroup catalogue Catalogue
///
/// What jt knows of services, types and names of values, as data: for editors, checkers and converters. All of
/// it is constant, so these calls take no session, record nothing and may be made on any thread. A list is
/// walked by number from 0 on, to the first null:
///
/// ```c
/// for (int32_t i = 0; jt_catalogue_service(i) != NULL; ++i) ...
/// ```
/// \{

/// The name of a service that templates can name and that has types of its own.
///
/// \param index  Which one, from 0 on. They have no order that means anything.
/// \return Its name, the library's; null behind the last one and for a negative index.
JT_API const char *jt_catalogue_service(int32_t index);

/// The types that a service has of its own, or the built-in ones, which every service has beside them.
///
/// \param service_name  The service, one of those of jt_catalogue_service(), letters folded; null for the
///                      built-in types.
/// \param count         Where the number of types goes; may be null.
/// \return The first of `count` rows, the library's, in the order of their names with letters folded. A row without
/// operations is a kind of block, the service's own among them. Null, and 0 as the number, when there is no
/// such service.
JT_API const jt_type *jt_catalogue_types(const char *service_name, int32_t *count);

/// A name that the enumerated types of a service accept, with its number. Of several names for one number
/// jt_catalogue_is_written() tells which is written. All enumerated types of a service share one list: which of its names
/// are meant for which type is not known.
///
/// \param service_name  The service, letters folded; null for the names of `kmt_enum_status`, `enum_units` and
///                      `enum_systemidalgorithm`.
/// \param index         Which one, from 0 on, in the order of the names with letters folded.
/// \param number        Where its number goes; may be null. Set only when there is such a name.
/// \return A new text; null behind the last one, for a negative index, when there is no such service or when it has no
/// enumerated types, and without memory.
/// \owner The caller: jt_destroy_value_string() or `free`.
/// \cost O(its length).
JT_API char *jt_catalogue_name(const char *service_name, int32_t index, uint32_t *number);

/// Whether a name is the one that is written for its number. Of several names for one number one is; the others are
/// read, and written back as that one.
///
/// \param service_name  As for jt_catalogue_name().
/// \param index         As for jt_catalogue_name().
/// \return 1 or 0; 0 where there is no such name.
JT_API int32_t jt_catalogue_is_written(const char *service_name, int32_t index);

/// The form of the values of a type, as one line. Words in small letters are parts, capitals and signs stand for
/// themselves, `[` and `]` are around what may be left out, and `|` is between what excludes each other:
///
/// | form | of |
/// |---|---|
/// | `TRUE\|FALSE` | boolean |
/// | `integer` | integer: a sign or none, digits |
/// | `decimal` | real: digits, a point among them or none |
/// | `text` | string: any bytes |
/// | `year/month/day/hour/minute/second` | timestamp: four digits, then two each |
/// | `hour:minute` | struct_timeofday |
/// | `invocation[:qualifier]` | ref_invocation |
/// | `collection` | ref_collection |
/// | `name` | every enumerated type: a name of jt_catalogue_name(); any other is kept with a warning |
/// | `x/y/width/height/unit` | struct_rectangle |
/// | `width/width/unit` | struct_gutter |
/// | `mode[/percentage[/percentage]]` | struct_magnification: `NONE`, `AUTOISO`, `AUTOANA`; one number behind `MANISO`; two behind `MANANA` |
/// | `margin/margin/margin/margin/unit[/side]` | struct_borders: the side is once more the same, or `FLIPV`, `FLIPH`, `FLIPB` |
///
/// The parts that jt_catalogue_range() knows are whole numbers without a sign, but for `integer`. A `unit` is `MM`, `IN`
/// or `MIL`.
///
/// \param type  A row of the type tables, or a built-in type.
/// \return The form, the library's; null for a kind of block, for any other type, and for null.
JT_API const char *jt_catalogue_form(const jt_type *type);

/// What becomes of a number outside of its range.
enum {
  JT_OUTSIDE_REFUSED = 0,   ///< The value is refused.
  JT_OUTSIDE_WARNED = 1,    ///< It is kept, with a warning.
  JT_OUTSIDE_SATURATED = 2  ///< The nearest limit is kept.
};

/// The range of one part of a form, both limits included. Later versions may add members behind these.
typedef struct jt_value_range {
  /// The size of the caller's record: `sizeof(jt_value_range)`. Set by the caller.
  uint32_t size;
  /// What becomes of a number outside: one of the JT_OUTSIDE_ numbers.
  int32_t outside;
  /// The smallest number.
  int32_t least;
  /// The largest number.
  int32_t most;
  /// The part, as the form spells it; the library's.
  const char *part;
  /// The unit that these limits are in, `MM`, `IN` or `MIL`; null where the form has no unit. The library's.
  const char *unit;
} jt_value_range;

/// A range of a type, one for each part and unit that has one. Parts of the same name have the same range.
///
/// ```c
/// jt_value_range range = {.size = sizeof range};
/// for (int32_t i = 0; jt_catalogue_range(type, i, &range); ++i) puts(range.part);
/// ```
///
/// \param type   As for jt_catalogue_form().
/// \param index  Which one, from 0 on, in the order of the form.
/// \param range  Where it goes; not changed behind its size. Null gives 0.
/// \return 1; 0 behind the last one, for a negative index, and where jt_catalogue_form() gives null; the record is
/// then not changed.
JT_API int32_t jt_catalogue_range(const jt_type *type, int32_t index, jt_value_range *range);

/// \}

// ---- Source -----------------------------------------------------------------------------------------------

/// \defgroup source Source: places and findings
///
/// Where everything stands in a text, and everything that is wrong with it: for checkers, formatters and
/// editors. A text has a length here and need not end in a NUL; the caller keeps it during the call. Offsets
/// count its bytes from 0. Lines and columns count from 1, columns in bytes; a line ends at LF, CR LF or CR.
///
/// ```c
/// static int32_t print_finding(void *context, const jt_finding *finding) {
///   printf("%s:%zu:%zu: %s\n", (const char *)context, finding->line, finding->column,
///          jt_finding_name(finding->code));
///   return 0;
/// }
/// ```
///
/// **Listener.** What is told comes in the text's order: an element is opened before its first token and
/// closed behind its last one, its status included; a token is told once, when it has been accepted, and a
/// comment before the token that follows it. Ranges of tokens do not overlap; between them is white space and,
/// behind an error, text that was skipped. What is found at a token follows it. Records and their texts live
/// during the callback. A callback returns 0 to go on; any other result ends the call, which fails with
/// `CALL ERROR: ended by the listener`. Calls on the same session from inside a callback fail with
/// `CALL ERROR: made from inside a listener`.
/// \{

/// A piece of a text: the offset of its first byte, and of the byte behind its last one.
typedef struct jt_range {
  size_t begin;  ///< Its first byte.
  size_t end;    ///< The byte behind its last one.
} jt_range;

/// What an element of a text is.
enum {
  JT_SOURCE_HEADER = 1,      ///< With the attributes of the header.
  JT_SOURCE_SECTION = 2,     ///< From its opening marks to its closing ones.
  JT_SOURCE_SERVICE = 3,     ///< From its bracket on.
  JT_SOURCE_INVOCATION = 4,  ///< From its name or its brace on.
  JT_SOURCE_ATTRIBUTE = 5,   ///< From its star or its type on.
  JT_SOURCE_VALUE = 6,       ///< One of an attribute.
  JT_SOURCE_STATUS = 7       ///< From its parenthesis on.
};

/// An element of a text.
typedef struct jt_source_element {
  size_t size;     ///< Of this record, which may grow.
  int32_t kind;    ///< `JT_SOURCE_...`.
  int32_t number;  ///< Elements count from 0 in the order in which they are opened.
  jt_range range;  ///< Where it stands. When it is opened, its end is not known and equals its begin.
} jt_source_element;

/// The part that a token plays.
enum {
  JT_ROLE_PUNCTUATION = 0,      ///< The word `end` of a service is one.
  JT_ROLE_MARKER = 1,           ///< `SIL`, `/SIL`, `/`, and the `?` or `!` of a form.
  JT_ROLE_VERSION = 2,          ///< Of the header, as the next two.
  JT_ROLE_ENCODING = 3,         ///< ASCII.
  JT_ROLE_IDENTIFIER = 4,       ///< Of the interaction.
  JT_ROLE_SERVICE_TYPE = 5,     ///< The first word in brackets.
  JT_ROLE_SERVICE_NAME = 6,     ///< The second one.
  JT_ROLE_INVOCATION_NAME = 7,  ///< In front of a brace.
  JT_ROLE_STAR = 8,             ///< Of an attribute that is not compulsory.
  JT_ROLE_ATTRIBUTE_TYPE = 9,   ///< The first word of an attribute.
  JT_ROLE_ATTRIBUTE_NAME = 10,  ///< The second one.
  JT_ROLE_VALUE = 11,           ///< Of an attribute.
  JT_ROLE_STATUS = 12,          ///< The name in parentheses.
  JT_ROLE_STATUS_TEXT = 13,     ///< A word in the braces of a status.
  JT_ROLE_COMMENT = 14          ///< From `#` to the end of its line, which is no part of it.
};

/// A token of a text.
typedef struct jt_source_token {
  size_t size;       ///< Of this record, which may grow.
  int32_t role;      ///< `JT_ROLE_...`.
  jt_range range;    ///< As it is written, with its quotes and escapes.
  const char *text;  ///< What it means, without them. Not terminated.
  size_t length;     ///< Of that text.
} jt_source_token;

/// How bad a finding is.
enum {
  JT_SEVERITY_ERROR = 0,    ///< A decode fails.
  JT_SEVERITY_LOSS = 1,     ///< Something that is written is dropped or changed.
  JT_SEVERITY_WARNING = 2,  ///< Nothing is lost, but it is hardly what was meant.
  JT_SEVERITY_NOTE = 3      ///< Worth knowing.
};

/// What was found. jt_finding_name() gives the name of a code, such as `syntax-expected`.
enum {
  JT_FINDING_SYNTAX_EXPECTED = 0,  ///< Something else belongs here.
  JT_FINDING_SYNTAX_UNCLOSED,      ///< What was opened at the second range is never closed.
  JT_FINDING_SYNTAX_STRING,        ///< A quote that does not end, or stands inside a word.
  JT_FINDING_STRING_OVER_LINES,    ///< A quote that runs over the end of its line, and then into an error.
  JT_FINDING_SYNTAX_LENGTH,        ///< A token, a name, a value or a comment is too long.
  JT_FINDING_SYNTAX_NUL,           ///< A NUL in the text.
  JT_FINDING_TEXT_BOM,             ///< The text begins with a byte order mark.
  JT_FINDING_BLOCK_ILLEGAL,        ///< Marks that the header does not promise.
  JT_FINDING_MEMORY,               ///< There is no memory left.
  JT_FINDING_LIMIT,                ///< A limit of the options is passed.
  JT_FINDING_HEADER_FORM,          ///< No header begins like this.
  JT_FINDING_HEADER_VERSION,       ///< The header's version is not the library's.
  JT_FINDING_HEADER_ENCODING,      ///< The encoding is not ASCII, and becomes that.
  JT_FINDING_END_MARKER,           ///< The end marker that the header promises is missing or not well formed.
  JT_FINDING_SERVICE_TYPE_UNKNOWN,             ///< No service has this type.
  JT_FINDING_SERVICE_UNKNOWN,                  ///< Of this service nothing is known.
  JT_FINDING_ATTRIBUTE_TYPE_UNKNOWN,           ///< No service has this type of attribute.
  JT_FINDING_ATTRIBUTE_TYPE_OF_OTHER_SERVICE,  ///< The type is one of another service.
  JT_FINDING_NAME_DUPLICATE,                   ///< The name is taken, by what stands at the second range.
  JT_FINDING_NAME_UNSAFE,                      ///< Of a template: the name would not be read back.
  JT_FINDING_VALUE_MALFORMED,     ///< The value does not have the form of its type, and is dropped.
  JT_FINDING_VALUE_OUT_OF_RANGE,  ///< A number is outside of the limits of its type.
  JT_FINDING_VALUE_SATURATED,     ///< A number is too large, and becomes the largest there is.
  JT_FINDING_VALUE_TAIL,          ///< What follows the value is ignored.
  JT_FINDING_VALUE_EMPTY_NUMBER,  ///< There is no digit where a number belongs: it is read as 0.
  JT_FINDING_VALUE_IMPOSSIBLE,    ///< A date or time that no calendar has.
  JT_FINDING_VALUE_UNKNOWN_NAME,  ///< The name is none that the type knows.
  JT_FINDING_VALUE_UNSAFE,        ///< The value would be written so that it is not read back.
  JT_FINDING_VALUE_DROPPED,       ///< The value is dropped, and nothing else says why.
  JT_FINDING_VALUE_ROUNDED,       ///< The number would be written back as another one.
  JT_FINDING_STATUS_UNKNOWN,      ///< The status is none that the library knows.
  JT_FINDING_STATUS_UNSAFE,       ///< The status or its text would not be read back.
  JT_FINDING_STATUS_TEXT_LOST,    ///< Of several words behind a status only the last one is kept.
  JT_FINDING_COMMENT_MOVES,       ///< The comment would be written at another place.
  JT_FINDING_IGNORE_UNUSED        ///< A suppression that hides nothing; for tools, jt itself has none.
};

/// What the names are that may have been meant.
enum {
  JT_CANDIDATES_NONE = 0,      ///< None are known.
  JT_CANDIDATES_SERVICES = 1,  ///< Those of jt_catalogue_service().
  JT_CANDIDATES_TYPES = 2,     ///< Those of jt_catalogue_types() for the scope, and the built-in ones.
  JT_CANDIDATES_NAMES = 3      ///< Those of jt_catalogue_name() for the scope.
};

/// Something that was found in a text or a template.
typedef struct jt_finding {
  size_t size;           ///< Of this record, which may grow.
  int32_t code;          ///< `JT_FINDING_...`.
  int32_t severity;      ///< `JT_SEVERITY_...`.
  jt_range range;        ///< Where. Empty, behind the last token, where one is missing.
  size_t line;           ///< The line in which the range begins.
  size_t column;         ///< Its column there.
  jt_range found;        ///< The token at which a decode stops; in other findings the range.
  int32_t found_is_end;  ///< Not 0: that is the end of the text.
  const char *expected;  ///< The marks that may stand there, with blanks between them, as in `= ;`; or empty.
  uint32_t expected_roles;  ///< The roles that a token may have there: the sum of `1 << JT_ROLE_...`.
  int32_t has_second;       ///< Not 0: there is a second range.
  jt_range second;          ///< The first of two namesakes, or the opening of what is not closed.
  int32_t candidates;       ///< `JT_CANDIDATES_...`.
  const char *scope;        ///< The service whose types or names may be meant; null: those of none.
  const char *type;         ///< The type of a value that the finding is about, or null.
  int32_t element;          ///< Of a template: the handle of the element; in a text 0.
} jt_finding;

/// Who is told. Each function may be null. jt reads as many bytes as `size` says.
typedef struct jt_listener {
  size_t size;    ///< `sizeof(jt_listener)`.
  void *context;  ///< Handed to each function; may be null.
  /// An element begins.
  int32_t (*open)(void *context, const jt_source_element *element);
  /// An element has ended.
  int32_t (*close)(void *context, const jt_source_element *element);
  /// A token has been accepted.
  int32_t (*token)(void *context, const jt_source_token *token);
  /// Something was found.
  int32_t (*finding)(void *context, const jt_finding *finding);
  /// The handle of the element of that number, for those that have one: told when a decode has succeeded,
  /// behind all else and in the order of the numbers.
  int32_t (*handle)(void *context, int32_t number, int32_t handle);
} jt_listener;

/// How a text is decoded. Members that are 0 ask for nothing, so `{sizeof(jt_source_options)}` are the defaults.
typedef struct jt_source_options {
  size_t size;        ///< `sizeof(jt_source_options)`.
  int32_t strict;     ///< Not 0: the first loss fails the decode, `SYNTAX ERROR: strict: ` + its code.
  size_t most_bytes;  ///< Of text. 0 is no limit, here and in the next two.
  size_t most_nodes;  ///< That the decode may make.
  size_t most_heap;   ///< Bytes of memory that the decode may ask for.
} jt_source_options;

/// As jt_decode_template(), for a text with a length, and tells a listener where everything stands. A text
/// with a NUL in it is refused, and so is one that passes a limit; such a decode leaves nothing.
///
/// \param space     The session.
/// \param text      The text; null is refused.
/// \param size      Its length in bytes.
/// \param options   Strictness and limits; null for none.
/// \param listener  Who is told; may be null.
/// \return The new template's handle; 0 on failure. All that was opened is closed then, too.
/// \errors As jt_decode_template(); `SYNTAX ERROR: NUL in the text`; `SYNTAX ERROR: strict: ` + code;
/// `MEMORY ERROR: limit passed: ` + `bytes`, `nodes` or `heap`; those of a listener that ends the call.
/// \cost O(length of the text).
JT_API int32_t jt_decode_source(jt_parser_space *space, const char *text, size_t size,
                                const jt_source_options *options, const jt_listener *listener);

/// Tells a listener everything that is wrong in a text: where a decode stops at the first error, a check goes
/// on behind it. It makes nothing; status and history are those that the decode of the text would leave. After
/// an error nothing is said of syntax until an element has been read whole, so that one mistake is told once.
///
/// \param space     The session.
/// \param text      The text; null is refused.
/// \param size      Its length in bytes.
/// \param options   Strictness and limits; null for none.
/// \param listener  Who is told; may be null.
/// \return 1 when a decode with these options would succeed, 0 otherwise.
/// \errors As jt_decode_source().
/// \cost O(length of the text).
JT_API int32_t jt_check_source(jt_parser_space *space, const char *text, size_t size,
                               const jt_source_options *options, const jt_listener *listener);

/// Tells a listener what of a template would not be read back as it is when it is written: names, values and
/// statuses that are unsafe, comments that move, a body that is not written. Only `finding` is called, with
/// empty ranges and the handle of the element. The template stays as it is.
///
/// \of_template
/// \param listener  Who is told; may be null.
/// \return 1 when nothing of it would be lost, 0 otherwise.
/// \errors Those of a listener that ends the call.
/// \cost O(size of the template).
JT_API int32_t jt_check_template(jt_parser_space *space, int32_t handle, const jt_listener *listener);

/// The name of a code, as tools print it.
///
/// \param code  `JT_FINDING_...`.
/// \return Such as `syntax-expected`; null behind the last code and for a negative one.
JT_API const char *jt_finding_name(int32_t code);

/// \}

// ==== Beneath the calls: reports, memory, texts ============================================================

/// \defgroup store Beneath the calls: reports, memory, texts
///
/// These have no frame: they do not reset the status. A null session or text fails without a report where
/// nothing else is said.
/// \{

/// Records a report: the message, the detail directly behind it, and ` ...`, cut so that message and detail
/// have at most 251 bytes together; a message of 256 bytes or more is kept as its first 255 alone. The
/// status becomes the message's category. Message and detail may be texts of the history itself.
///
/// \param space    The session; null records nothing.
/// \param message  The message. Null is shown as `(null)`; it has no category, so the status stays.
/// \param detail   The detail. Null is shown as `(null)`.
/// \return The category; 0 for a null session or a null message.
JT_API int32_t jt_error(jt_parser_space *space, const char *message, const char *detail);

/// Sets the status to #JT_OK and leaves the history alone.
///
/// \param space  The session.
JT_API void reset_error_status(jt_parser_space *space);

/// As jt_last_api_error().
///
/// \param space  The session.
/// \return The status.
JT_API int32_t get_error_status(jt_parser_space *space);

/// As jt_get_recent_error(), but the status stays.
///
/// \param space  The session.
/// \return The text; null when there is none.
/// \owner The session, which changes it with its next report.
JT_API const char *get_last_error(jt_parser_space *space);

/// As jt_get_previous_error(), but the status stays.
///
/// \param space  The session.
/// \return The text; null when none is left.
/// \owner The session, which changes it with its next report.
JT_API const char *get_previous_error(jt_parser_space *space);

/// As jt_open_parsing_utility().
///
/// \param label  Any text, kept as a copy; null gives null.
/// \return The session; null without memory.
/// \owner The caller: delete_parser_space() or jt_close_parsing_utility().
JT_API jt_parser_space *create_parser_space(const char *label);

/// As jt_close_parsing_utility().
///
/// \param space  The session; null is accepted.
/// \return Always 1.
/// \cost O(nodes alive).
JT_API int32_t delete_parser_space(jt_parser_space *space);

/// A zeroed block of the heap.
///
/// \param space  Only told of a failure; may be null.
/// \param count  How many elements.
/// \param size   Bytes of each.
/// \return The block; null without a report for a count of 0 or a size of 0 or less, null on failure.
/// \errors `MEMORY ERROR: allocation error`, for a product that is too large as well.
/// \owner The caller: er_free() or `free`.
/// \cost O(count times size).
JT_API void *my_calloc(jt_parser_space *space, size_t count, int32_t size);

/// Clears the first byte of a block and releases it.
///
/// \param block  The block; null is accepted.
/// \return Always 1.
JT_API int32_t er_free(void *block);

/// Reads a text of decimal digits only, at least one.
///
/// \param text      The text.
/// \param[out] out  The number, at most the largest long; must not be null. Left alone on failure.
/// \return 1; 0 for any other text and for null.
/// \cost O(length).
JT_API int32_t string_to_integer(const char *text, long *out);

/// Compares two texts, A to Z like a to z. Null comes before every text and equals null.
///
/// \param a  One text.
/// \param b  The other.
/// \return The difference of the first two bytes (unsigned) that differ, 0 when none do.
/// \cost O(length).
JT_API int32_t lowercasecmp(const char *a, const char *b);

/// \}

// ==== Beneath the calls: nodes =============================================================================

/// \defgroup tree Beneath the calls: nodes
///
/// These have no frame: they do not reset the status. A null session, node or text fails without a report
/// where nothing else is said. A node must be of the session that is given with it.
/// \{

/// A new node of a class, not linked yet: link it with one of the add calls or destroy it with
/// destroy_node(). Nodes with a value are made by the two calls after this: one of #JT_NODE_VALUE from here
/// has a name, perhaps the name of an unknown type, and no value; reading it gives nothing, and nothing is
/// written for it.
///
/// \param space       The session.
/// \param type_name   The type is what jt_get_type() gives for the class and the enclosing node, with its
///                    reports; an unknown type is accepted and its name kept.
/// \param node_name   Null or empty makes an unnamed node.
/// \param node_class  One of the JT_NODE_ numbers.
/// \param enclosing   The node that it is to stand under; null for a template and a header.
/// \return The node; null on failure.
/// \errors `SYSTEM ERROR: Unknown node class`; `MEMORY ERROR: Allocating for the node:` + name;
/// `MEMORY ERROR: Allocating for ` + name or type name; `SYSTEM ERROR: could not assign book mark`.
/// \owner The caller, until it is linked: destroy_node().
JT_API jt_node *create_typed_node(jt_parser_space *space, const char *type_name, const char *node_name,
                                  int32_t node_class, jt_node *enclosing);

/// A new value node from a text. For jt_unknown_type() the text itself is kept.
///
/// \param space  The session.
/// \param type   The type of the value.
/// \param text   The text, which stays as it is.
/// \return The node; null on failure, when the type refuses the text, with the reports of the type, or is a
/// kind of block, without one.
/// \errors `MEMORY ERROR: allocating for a value node` + text; `MEMORY ERROR: allocating pending value:` +
/// text; `SYSTEM ERROR: could not assign book mark`.
/// \owner The caller, until it is linked: destroy_node().
/// \cost O(length of the text).
JT_API jt_node *create_value_node(jt_parser_space *space, const jt_type *type, const char *text);

/// A new value node with a copy of the value.
///
/// \param space  The session.
/// \param type   The type of the value; null without a report for jt_unknown_type().
/// \param value  The value.
/// \return The node; null on failure.
/// \errors `SYSTEM ERROR: no copy function for:` + type name; `CALL ERROR: could not copy the value`;
/// `MEMORY ERROR: allocating for a value node` + the value, if it is a string;
/// `SYSTEM ERROR: could not assign book mark`.
/// \owner The caller, until it is linked: destroy_node().
/// \cost O(its size).
JT_API jt_node *create_value_ptr_node(jt_parser_space *space, const jt_type *type, const jt_value *value);

/// Links a child under a parent, at the end. A child that is linked already, here or elsewhere, is taken out
/// of its place once all checks have passed, and linked anew.
///
/// \param space   The session.
/// \param parent  The node that owns the child from then on.
/// \param child   Null is accepted: 1. Its type must be the one that jt_get_type() gives under this parent,
///                whose reports come again.
/// \return 1; 0 on failure.
/// \errors `SYSTEM ERROR: Trying to add an inconsistent type`.
/// \owner The parent; a child that is refused stays where it was and whose it was.
JT_API int32_t add_child(jt_parser_space *space, jt_node *parent, jt_node *child);

/// As add_child(), unless a child there has its name. So a child with a name is refused under the parent
/// where it hangs: it meets itself there.
///
/// \param space   The session.
/// \param parent  The node that owns the child from then on.
/// \param child   As for add_child().
/// \return 1; 0 on failure.
/// \errors `SYSTEM ERROR: Trying to add an inconsistent type`;
/// `SYNTAX ERROR: Trying to save multiple definitions for:` + name.
/// \owner The parent; a child that is refused stays where it was and whose it was.
JT_API int32_t add_unique_child(jt_parser_space *space, jt_node *parent, jt_node *child);

/// As add_child(), but after the cursor, which then stands on the new child. A cursor that has not started
/// counts as on the first child, one that has run out as on the last.
///
/// \param space   The session.
/// \param parent  The node that owns the child from then on.
/// \param child   As for add_child().
/// \return 1; 0 on failure.
/// \errors `SYSTEM ERROR: Trying to add an inconsistent type`.
/// \owner The parent; a child that is refused stays where it was and whose it was.
JT_API int32_t add_index_child(jt_parser_space *space, jt_node *parent, jt_node *child);

/// Appends to the node's comment, without a separator.
///
/// \param space  The session.
/// \param node   The node.
/// \param text   A comment that is to be written as SIL consists of lines that begin with `#` and end with a
///               line feed.
/// \return 1; 0 on failure.
/// \errors `MEMORY ERROR: allocating for the comment:` + text.
/// \cost O(length of the comment).
JT_API int32_t add_comment(jt_parser_space *space, jt_node *node, const char *text);

/// The first child of that name. Values are found only if they have a name: those of create_typed_node().
///
/// \param space   The session.
/// \param parent  The node.
/// \param name    The name.
/// \return The child; null without a report when there is none, and for a parent that is a value.
/// \owner Its parent.
JT_API jt_node *get_child(jt_parser_space *space, jt_node *parent, const char *name);

/// Destroys the node with everything below it and takes it out of its place. A node of another session is
/// refused.
///
/// \param space  The session.
/// \param node   The node.
/// \return 1; 0 on failure.
/// \errors `CALL ERROR: trying to release non existant memory` for a node without a slot in this session.
/// \cost O(nodes below it).
JT_API int32_t destroy_node(jt_parser_space *space, jt_node *node);

/// Destroys everything below the node.
///
/// \param space  The session.
/// \param node   The node.
/// \return 1; 0 on failure.
/// \cost O(nodes below it).
JT_API int32_t destroy_children(jt_parser_space *space, jt_node *node);

/// Destroys the child at the cursor. The one before it gets the cursor, or, when it was the first, the new
/// first.
///
/// \param space   The session.
/// \param parent  The node.
/// \return 1; 0 without a report when the cursor has run out or there are no children.
/// \cost O(nodes below the child).
JT_API int32_t delete_index_child(jt_parser_space *space, jt_node *parent);

/// Destroys everything that is connected with the node: the whole template, with header and section.
///
/// \param space  The session.
/// \param node   Any node of it.
/// \return 1; 0 on failure.
/// \cost O(nodes).
JT_API int32_t destroy_all_nodes(jt_parser_space *space, jt_node *node);

/// The name of the first child; the cursor moves to the second. Reports and cursor as
/// jt_get_first_service_name().
///
/// \param space   The session.
/// \param parent  The node.
/// \return A new text; null when there is none.
/// \owner The caller: jt_destroy_name() or `free`.
JT_API char *first_child_name(jt_parser_space *space, jt_node *parent);

/// A copy of the value of the first child; the cursor moves to the second. Reports and cursor as
/// jt_get_first_attribute_value().
///
/// \param space   The session.
/// \param parent  The node.
/// \return The copy; null when there is none.
/// \owner The caller: jt_destroy_value() with its type.
/// \cost O(its size).
JT_API jt_value *first_child_value(jt_parser_space *space, jt_node *parent);

/// The value of the first child as a text; the cursor moves to the second. Reports and cursor as
/// jt_get_first_attribute_value_string().
///
/// \param space   The session.
/// \param parent  The node.
/// \return A new text; null when there is none.
/// \owner The caller: jt_destroy_value_string() or `free`.
/// \cost O(its length).
JT_API char *first_child_value_string(jt_parser_space *space, jt_node *parent);

/// The name of the child at the cursor, which moves on; as jt_get_next_service_name().
///
/// \param space   The session.
/// \param parent  The node.
/// \return A new text; null when there is none.
/// \owner The caller: jt_destroy_name() or `free`.
JT_API char *index_child_name(jt_parser_space *space, jt_node *parent);

/// A copy of the value of the child at the cursor, which moves on; as jt_get_next_attribute_value().
///
/// \param space   The session.
/// \param parent  The node.
/// \return The copy; null when there is none.
/// \owner The caller: jt_destroy_value() with its type.
/// \cost O(its size).
JT_API jt_value *index_child_value(jt_parser_space *space, jt_node *parent);

/// The value of the child at the cursor, which moves on, as a text; as jt_get_next_attribute_value_string().
///
/// \param space   The session.
/// \param parent  The node.
/// \return A new text; null when there is none.
/// \owner The caller: jt_destroy_value_string() or `free`.
/// \cost O(its length).
JT_API char *index_child_value_string(jt_parser_space *space, jt_node *parent);

/// Moves the cursor on.
///
/// \param space   The session.
/// \param parent  The node.
/// \return Whether it stands on a child then.
/// \errors `CALL ERROR: empty pointer` for a null parent.
JT_API int32_t advance_index(jt_parser_space *space, jt_node *parent);

/// Sets the cursor on the first child, or at the end when there is none.
///
/// \param space   The session.
/// \param parent  The node.
/// \return 1; 0 on failure.
/// \errors `CALL ERROR: empty pointer` for a null parent.
JT_API int32_t reset_index(jt_parser_space *space, jt_node *parent);

/// The handle of a node.
///
/// \param bookmark  The slot of the node in the session's table.
/// \return -100 minus the slot.
JT_API int32_t bookmark_to_opaque(int32_t bookmark);

/// The node of a handle, of any class.
///
/// \param space   The session.
/// \param handle  The handle.
/// \return The node; null for every other number.
/// \errors `SYSTEM ERROR: unknown opaque marker`.
/// \owner The session.
JT_API jt_node *opaque_to_node(jt_parser_space *space, int32_t handle);

/// As jt_encode_template() for the root node of a template.
///
/// \param space  The session.
/// \param root   The root node.
/// \return A new text; null on failure.
/// \errors `SYSTEM ERROR: internal call for encode_template with NULL`; for a header without its three values
/// `SYSTEM ERROR: Language Version is missing`, `SYSTEM ERROR: Character Encoding is missing`,
/// `SYSTEM ERROR: InteractionID is missing`.
/// \owner The caller: jt_destroy_value_string() or `free`.
/// \cost O(length of the text).
JT_API char *encode_template(jt_parser_space *space, jt_node *root);

/// As jt_decode_template(), for the root node.
///
/// \param space  The session.
/// \param text   The text.
/// \return The root node; null on failure.
/// \owner The session; destroy_all_nodes() destroys it earlier.
/// \cost O(length of the text).
JT_API jt_node *decode_template_string(jt_parser_space *space, const char *text);

/// \}

// ==== Beneath the calls: types =============================================================================

/// \defgroup types Beneath the calls: types
///
/// The tables are constant and sorted by name, A to Z like a to z. Each holds the types that its service has
/// of its own and the service's own row, a kind of block. The count beside it is its number of rows.
/// get_type_from_services() and the decoder consult all but two tables, which no template can reach:
/// qf_type_tab and pport_type_tab.
/// \{

/// The descriptor that stands for "unknown type".
///
/// \return An all-ones address, never to be read through.
static inline const jt_type *jt_unknown_type(void) { return (const jt_type *)UINTPTR_MAX; }

/// The type of that name: of the service, if it is one of the fourteen, else of the base types.
///
/// The base types: boolean, integer, real, string, timestamp, struct_timeofday, struct_rectangle,
/// ref_collection, ref_invocation, enum_systemidalgorithm, enum_units, kmt_enum_status; and, as kinds of
/// blocks: description, doc_object, generic_service, instance, invocation, service, sil_header, template,
/// unknown_type.
///
/// \param space         Not looked at.
/// \param service_name  The service, or null.
/// \param type_name     The type.
/// \return The row; null without a report when there is none.
/// \owner The library.
/// \cost O(length of the names).
JT_API const jt_type *get_type_from_services(jt_parser_space *space, const char *service_name,
                                             const char *type_name);

/// The type of a node that is to stand under the enclosing node:
///
/// | class | enclosing node | found in | otherwise |
/// |---|---|---|---|
/// | template, header | null | base types | null |
/// | service | template | base types, fourteen services | null |
/// | invocation | service | types of its name or its type | jt_unknown_type() |
/// | attribute | invocation | types of the service | jt_unknown_type() |
/// | attribute | other node named `header` | base types | jt_unknown_type() |
/// | value | attribute | the attribute's own type | null |
///
/// \param space       The session.
/// \param type_name   The type.
/// \param node_class  One of the JT_NODE_ numbers.
/// \param enclosing   The node that it is to stand under.
/// \return The row, jt_unknown_type() or null.
/// \errors `SYNTAX ERROR: unknown or invalid type:` + type name where the result is null, also for any other
/// enclosing node; `WARNING: unknown service:` + type name or `WARNING: unknown attribute type:` + type name
/// where it is unknown.
/// \owner The library.
/// \cost O(length of the names).
JT_API const jt_type *jt_get_type(jt_parser_space *space, const char *type_name, int32_t node_class,
                                  const jt_node *enclosing);

/// A status from a name, any case. A name that no number has is kept.
///
/// \param space  The session.
/// \param name   The name.
/// \return The status; null on failure.
/// \errors <code>WARNING: trying to evaluate as an 'enumerated' type:</code> + name, and the name is kept;
/// `MEMORY ERROR: allocating value :` + name.
/// \owner The caller: kill_status() or jt_destroy_status().
/// \cost O(length).
JT_API jt_status *get_status(jt_parser_space *space, const char *name);

/// A new status equal to the given one.
///
/// \param space   The session.
/// \param status  The status; null gives null, silently.
/// \return The copy; null on failure.
/// \owner The caller: kill_status() or jt_destroy_status().
JT_API jt_status *copy_status(jt_parser_space *space, const jt_status *status);

/// The name of a status.
///
/// \param space   The session.
/// \param status  The status.
/// \return A new text; null on failure.
/// \errors `CALL ERROR: Unknown enumerated value` for a number without a name (null) and for a kept name
/// (which is still given); `MEMORY ERROR: allocation error while encoding` + name.
/// \owner The caller: jt_destroy_value_string() or `free`.
JT_API char *get_status_string(jt_parser_space *space, const jt_status *status);

/// Releases a status.
///
/// \param space   The session.
/// \param status  The status; null is accepted.
/// \return Always 1.
JT_API int32_t kill_status(jt_parser_space *space, jt_status *status);

/// Gives any node a status, with the results and reports of jt_set_service_status().
///
/// \param space   The session.
/// \param node    The node.
/// \param status  The status, which stays the caller's.
/// \return 1; 0 on failure, without a report for a null session or node.
JT_API int32_t set_status(jt_parser_space *space, jt_node *node, const jt_status *status);

/// The operation of struct_gutter that its row has as jt_type::eval; see \ref values.
///
/// \param space  The session, or null.
/// \param text   The text, which it may write into.
/// \return The value; null when the text is null or refused.
/// \owner The caller: kill_gutter().
JT_API jt_value *eval_gutter(jt_parser_space *space, char *text);

/// The operation of struct_gutter that its row has as jt_type::copy.
///
/// \param space  The session, or null.
/// \param value  The value.
/// \return The copy; null for null.
/// \owner The caller: kill_gutter().
JT_API jt_value *copy_gutter(jt_parser_space *space, const jt_value *value);

/// The operation of struct_gutter that its row has as jt_type::deval.
///
/// \param space  The session, or null.
/// \param value  The value.
/// \return A new text; null for null.
/// \owner The caller: `free`.
JT_API char *deval_gutter(jt_parser_space *space, const jt_value *value);

/// The operation of struct_gutter that its row has as jt_type::cmp.
///
/// \param space  The session, or null.
/// \param a      One value.
/// \param b      The other.
/// \return -1, 0, 1 or -2.
JT_API int32_t cmp_gutter(jt_parser_space *space, const jt_value *a, const jt_value *b);

/// The operation of struct_gutter that its row has as jt_type::kill.
///
/// \param space  The session, or null.
/// \param value  The value; null is accepted.
/// \return 1.
JT_API int32_t kill_gutter(jt_parser_space *space, jt_value *value);

JT_API extern const jt_type desksvc_type_tab[];     ///< The types of `kmt_svc_desktop`.
JT_API extern const jt_type doc_type_tab[];         ///< The types of `kmt_document`.
JT_API extern const jt_type docman_type_tab[];      ///< The types of `kmt_svc_docman`.
JT_API extern const jt_type qf_type_tab[];          ///< The types of `kmt_svc_quillform`.
JT_API extern const jt_type email_type_tab[];       ///< The types of `kmt_svc_email`.
JT_API extern const jt_type fax_type_tab[];         ///< The types of `kmt_svc_fax`.
JT_API extern const jt_type file_type_tab[];        ///< The types of `kmt_svc_file`.
JT_API extern const jt_type gen_type_tab[];         ///< The types of `kmt_svc_general`.
JT_API extern const jt_type print_type_tab[];       ///< The types of `kmt_svc_print`.
JT_API extern const jt_type metadata_type_tab[];    ///< The types of `kmt_dscrpt_metadata`.
JT_API extern const jt_type notif_type_tab[];       ///< The types of `kmt_svc_notification`.
JT_API extern const jt_type ocr_type_tab[];         ///< The types of `kmt_svc_ocr`.
JT_API extern const jt_type pport_type_tab[];       ///< The types of `kmt_svc_traikubra`.
JT_API extern const jt_type ppware_type_tab[];      ///< The types of `kmt_svc_paperware`.
JT_API extern const jt_type scan_type_tab[];        ///< The types of `kmt_svc_scan`.
JT_API extern const jt_type validation_type_tab[];  ///< The types of `kmt_svc_validation`.

JT_API extern const int32_t MAX_DESKTOP_TYPES;     ///< The number of rows of #desksvc_type_tab.
JT_API extern const int32_t MAX_DOC_TYPES;         ///< The number of rows of #doc_type_tab.
JT_API extern const int32_t MAX_DOCMAN_TYPES;      ///< The number of rows of #docman_type_tab.
JT_API extern const int32_t MAX_QF_TYPES;          ///< The number of rows of #qf_type_tab.
JT_API extern const int32_t MAX_EMAIL_TYPES;       ///< The number of rows of #email_type_tab.
JT_API extern const int32_t MAX_FAX_TYPES;         ///< The number of rows of #fax_type_tab.
JT_API extern const int32_t MAX_FILE_TYPES;        ///< The number of rows of #file_type_tab.
JT_API extern const int32_t MAX_GEN_TYPES;         ///< The number of rows of #gen_type_tab.
JT_API extern const int32_t MAX_LPRNT_TYPES;       ///< The number of rows of #print_type_tab.
JT_API extern const int32_t MAX_METADATA_TYPES;    ///< The number of rows of #metadata_type_tab.
JT_API extern const int32_t MAX_NOTIF_TYPES;       ///< The number of rows of #notif_type_tab.
JT_API extern const int32_t MAX_OCR_TYPES;         ///< The number of rows of #ocr_type_tab.
JT_API extern const int32_t MAX_PPORT_TYPES;       ///< The number of rows of #pport_type_tab.
JT_API extern const int32_t MAX_PPWARE_TYPES;      ///< The number of rows of #ppware_type_tab.
JT_API extern const int32_t MAX_SCAN_TYPES;        ///< The number of rows of #scan_type_tab.
JT_API extern const int32_t MAX_VALIDATION_TYPES;  ///< The number of rows of #validation_type_tab.

/// A word of the client's own; null at the start. The library neither reads nor writes it.
JT_API extern char *g_szCurrentLocale;

/// \}

#ifdef __cplusplus
}
#endif

#endif
