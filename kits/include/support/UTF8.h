#pragma once

// Text conversion to UTF-8.

#include <support/SupportDefs.h>

/// Encodings that text is converted from.
enum : uint32 {
    B_ISO1_CONVERSION = 0,  ///< ISO 8859-1, and so on to ISO 8859-10
    B_ISO2_CONVERSION,
    B_ISO3_CONVERSION,
    B_ISO4_CONVERSION,
    B_ISO5_CONVERSION,
    B_ISO6_CONVERSION,
    B_ISO7_CONVERSION,
    B_ISO8_CONVERSION,
    B_ISO9_CONVERSION,
    B_ISO10_CONVERSION,
    B_MACINTOSH_ROMAN_CONVERSION,
    B_SJIS_CONVERSION,  ///< Shift-JIS as code page 932 has it
    B_EUC_CONVERSION,   ///< EUC-JP
    B_JIS_CONVERSION,   ///< ISO-2022-JP, with half-width katakana and code page 932's characters
    B_MS_WINDOWS_CONVERSION,  ///< code page 1252
    B_UNICODE_CONVERSION,     ///< UTF-16, most significant byte first
    B_KOI8R_CONVERSION,
    B_MS_WINDOWS_1251_CONVERSION,
    B_MS_DOS_866_CONVERSION,
};

/// What stands for bytes that mean nothing in their encoding.
inline constexpr char B_SUBSTITUTE = 0x1a;

/// Converts text to UTF-8, in pieces if need be.
///
/// Of the `*sourceLength` bytes at `source` it converts as many as fit into the `*destLength` bytes
/// at `dest`, whole characters only, and sets the two lengths to what was read and written; nothing
/// is NUL-terminated. A character cut off at the end of the source is left unread. `*state` is 0 at
/// the start of a text and is handed from piece to piece; null stands for a text in one piece.
/// Every byte that cannot be converted becomes `substitute`.
///
/// In Shift-JIS and JIS the bytes 0x5c and 0x7e are the backslash and the tilde, not yen sign and
/// overline: texts written on computers use them as such.
///
/// @return `B_OK`; `B_BAD_VALUE` for an unknown encoding or a null pointer, and nothing was read or
/// written; `B_ERROR` when the system lacks the conversion.
status_t convert_to_utf8(uint32 sourceEncoding, const char* source, int32* sourceLength, char* dest,
    int32* destLength, int32* state, char substitute = B_SUBSTITUTE);
