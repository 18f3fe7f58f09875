// Every message that the library records, by the floor that records it. The word before the colon decides the
// status of the session, so a text is chosen here and nowhere else. Where two texts differ only by a blank or
// a letter, that is how clients know them. tests/docs/messages_test.cpp compares the list with the page of
// the manual that describes each of them.
#ifndef JT_BASE_MESSAGES_H
#define JT_BASE_MESSAGES_H

namespace jt_core::message {

// ---- Sessions and memory ----
inline constexpr char kNoNodeTable[] = "MEMORY ERROR: allocating for book keeping";
inline constexpr char kAllocation[] = "MEMORY ERROR: allocation error";
inline constexpr char kBadBookmark[] = "CALL ERROR: trying to release non existant memory";

// ---- Types and values ----
inline constexpr char kBadValueBegin[] = "SYNTAX ERROR: trying to evaluate the following value string as -- ";
inline constexpr char kBadValueEnd[] = " --:\n\n";
inline constexpr char kUnknownEnumeratedName[] = "WARNING: trying to evaluate as an 'enumerated' type:";
inline constexpr char kUnknownUnitName[] = "SYNTAX ERROR: trying to evaluate as an 'enumerated' type:";
inline constexpr char kUnknownEnumeratedNumber[] = "CALL ERROR: Unknown enumerated value";
inline constexpr char kNoEnumeratedValue[] = "MEMORY ERROR: allocating value :";
inline constexpr char kNoEnumeratedText[] = "MEMORY ERROR: allocation error while encoding";
inline constexpr char kNullInvocationReference[] = "MEMORY ERROR: Invalid value, cannot dereferce NULL";
inline constexpr char kNullCollectionReference[] = "MEMORY ERROR: Invalid value, cannot dereference NULL";
inline constexpr char kUnnamedUnit[] = "MEMORY ERROR: Invalid value, cannot be encoded";
inline constexpr char kRectangleRange[] = "SYNTAX ERROR: Value outside range";
inline constexpr char kMagnificationRange[] = "SYNTAX ERROR: Value outside the range of 25-400";
inline constexpr char kGutterRangeMm[] = "WARNING: Value outside range (25 MM)";
inline constexpr char kGutterRangeIn[] = "WARNING: Value outside range (100 IN)";
inline constexpr char kGutterRangeMil[] = "WARNING: Value outside range (1000 MIL)";
inline constexpr char kBordersRangeMm[] = "WARNING: Value outside range: (50 MM)";
inline constexpr char kBordersRangeIn[] = "WARNING: Value outside range (200 IN)";
inline constexpr char kBordersRangeMil[] = "WARNING: Value outside range (2000 MIL)";

// ---- The tree ----
inline constexpr char kUnknownType[] = "SYNTAX ERROR: unknown or invalid type:";
inline constexpr char kUnknownService[] = "WARNING: unknown service:";
inline constexpr char kUnknownAttributeType[] = "WARNING: unknown attribute type:";
inline constexpr char kUnknownNodeClass[] = "SYSTEM ERROR: Unknown node class";
inline constexpr char kNoNode[] = "MEMORY ERROR: Allocating for the node:";
inline constexpr char kNoNodeText[] = "MEMORY ERROR: Allocating for ";
inline constexpr char kNoBookmark[] = "SYSTEM ERROR: could not assign book mark";
inline constexpr char kNoValueNode[] = "MEMORY ERROR: allocating for a value node";
inline constexpr char kNoPendingValue[] = "MEMORY ERROR: allocating pending value:";
inline constexpr char kNoCopyFunction[] = "SYSTEM ERROR: no copy function for:";
inline constexpr char kCannotCopy[] = "CALL ERROR: could not copy the value";
inline constexpr char kInconsistentType[] = "SYSTEM ERROR: Trying to add an inconsistent type";
inline constexpr char kDuplicateName[] = "SYNTAX ERROR: Trying to save multiple definitions for:";
inline constexpr char kNoComment[] = "MEMORY ERROR: allocating for the comment:";
inline constexpr char kNoNameCopy[] = "MEMORY ERROR: while allocating for";
inline constexpr char kUntypedValue[] = "CALL ERROR: unknown data type";
inline constexpr char kNoDevalFunction[] = "SYSTEM ERROR: no deval function for:";
inline constexpr char kNoPendingCopy[] = "MEMORY ERROR: allocating for pending value";
inline constexpr char kNullNode[] = "CALL ERROR: empty pointer";
inline constexpr char kNoStatus[] = "MEMORY ERROR: allocating for status.";
inline constexpr char kBadHandle[] = "SYSTEM ERROR: unknown opaque marker";

// ---- Decoding ----
inline constexpr char kUnexpectedEnd[] = "SYNTAX ERROR: unexpected EOF at -->";
inline constexpr char kQuoteInWord[] = "SYNTAX ERROR: quotes inside a string constant at -->";
inline constexpr char kWordAfterQuote[] = "SYNTAX ERROR: quotes inside a value token at -->";
inline constexpr char kTokenTooLong[] =
    "SYNTAX ERROR: token length exceeds JT_MAX_TOKEN_LENGTH (1024) + QUOTES --> ";
inline constexpr char kCommentTooLong[] = "SYNTAX ERROR: comment longer than JT_MAX_TOKEN_LENGTH -->";
inline constexpr char kNameTooLong[] = "SYNTAX ERROR: token is longer than allowable length:";
inline constexpr char kExpectedBegin[] = "SYNTAX ERROR: while parsing for \" ";
inline constexpr char kExpectedEnd[] = " \" at:";
inline constexpr char kIllegalEnd[] = "SYNTAX ERROR: Illegal end of block at";
inline constexpr char kIllegalBlock[] = "SYNTAX ERROR: Illegal Block";
inline constexpr char kBadHeaderAttribute[] = "SYNTAX ERROR: decoding attribute at:";
inline constexpr char kMissingEndMarker[] = "SYNTAX ERROR: Missing end marker";
inline constexpr char kVersionMismatch[] = "WARNING: version number mismatch\n";
inline constexpr char kNotAscii[] = "SYNTAX ERROR: Non ASCII encoding\n";
inline constexpr char kNoHeader[] = "MEMORY ERROR: Saving the header\n";
inline constexpr char kNoStatusText[] = "MEMORY ERROR: duplicating";
inline constexpr char kNul[] = "SYNTAX ERROR: NUL in the text";
inline constexpr char kStrict[] = "SYNTAX ERROR: strict: ";
inline constexpr char kLimit[] = "MEMORY ERROR: limit passed: ";
inline constexpr char kEndedByListener[] = "CALL ERROR: ended by the listener";

// ---- Encoding ----
inline constexpr char kNoOutput[] = "MEMORY ERROR: while allocating for encoding";
inline constexpr char kNoPendingText[] = "MEMORY ERROR: while duplicating";
inline constexpr char kBadValue[] = "MEMORY ERROR: bad value  -- ignored";
inline constexpr char kNullTemplate[] = "SYSTEM ERROR: internal call for encode_template with NULL";
inline constexpr char kNoLanguageVersion[] = "SYSTEM ERROR: Language Version is missing";
inline constexpr char kNoCharacterEncoding[] = "SYSTEM ERROR: Character Encoding is missing";
inline constexpr char kNoInteractionId[] = "SYSTEM ERROR: InteractionID is missing";

// ---- The calls ----
inline constexpr char kFromListener[] = "CALL ERROR: made from inside a listener";
inline constexpr char kNotAHandle[] = "CALL ERROR: not a valid handle";
inline constexpr char kNotATemplate[] = "CALL ERROR: not a template";
inline constexpr char kDoesNotExist[] = "CALL ERROR: does not exist:";
inline constexpr char kNoInvocation[] = "CALL ERROR: no current invocation";
inline constexpr char kNoSuchInvocation[] = "CALL ERROR: invocation does not exist:";
inline constexpr char kNoName[] = "CALL ERROR: no name to set";
inline constexpr char kDuplicateInvocation[] = "SYNTAX ERROR: duplicate naming not allowed";
inline constexpr char kAlreadyNamed[] = "CALL ERROR: invocation is already named";
inline constexpr char kNoInvocationName[] = "MEMORY ERROR: could not allocate the name";
inline constexpr char kNamelessType[] = "SYSTEM ERROR:there is no type name";
inline constexpr char kNoTypeName[] = "CALL ERROR: no type name";
inline constexpr char kNoKnownTypeCopy[] = "MEMORY ERROR:allocating for the type of";
inline constexpr char kNoUnknownTypeCopy[] = "MEMORY ERROR:allocating for the type of:";
inline constexpr char kNullValue[] = "CALL ERROR: value is a NULL pointer";
inline constexpr char kUnknownDataType[] = "CALL ERROR: unknown data type:";
inline constexpr char kNoCompareOfAttribute[] = "SYSTEM ERROR: no cmp function for:";
inline constexpr char kNoSuchValue[] = "CALL ERROR:there is no such value";
inline constexpr char kUnparsableValue[] = "CALL ERROR: unparsable value string";
inline constexpr char kCompulsory[] = "CALL ERROR: it is a compulsory attribute";
inline constexpr char kInvalidValue[] = "CALL ERROR: value structure is invalid";
inline constexpr char kUnknownTypeToCopy[] = "CALL ERROR: unknown type construct a copy";
inline constexpr char kUnknownTypeToCompare[] = "CALL ERROR: unknown type to compare";
inline constexpr char kUnknownTypeToEncode[] = "CALL ERROR: unknown type encode a value";
inline constexpr char kUnknownTypeToDecode[] = "CALL ERROR: unknown type decode";
inline constexpr char kUnknownTypeToDestroy[] = "CALL ERROR: no type construct to destroy the value";
inline constexpr char kNoOperation[] = "SYSTEM ERROR: undefined cmp function for";
inline constexpr char kNoCompare[] = "SYSTEM ERROR: no compare function for:";
inline constexpr char kNullValueToDestroy[] = "CALL ERROR: value is null, cannot delete";
inline constexpr char kWrongKind[] = "CALL ERROR: not for this kind of element";
inline constexpr char kNotReadBack[] = "CALL ERROR: would not be read back:";
inline constexpr char kStatusMissing[] = "CALL ERROR: there is no status";
inline constexpr char kHeaderMissing[] = "CALL ERROR: there is no header";
inline constexpr char kFormForbids[] = "CALL ERROR: form of header does not allow it";

}  // namespace jt_core::message

#endif
