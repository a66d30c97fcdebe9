// Input masks: short templates for text of a fixed shape, such as a telephone number or a part number.
//
// A mask picture is an optional prefix and a body. The prefix "^" means that the field's text isn't to be unmasked when
// the application reads it back; it takes up no position, and the library doesn't act on it. In the body each character
// is a mask character, which is an input position, or a literal:
//
//     9   an alphanumeric character that isn't alphabetic
//     a   an alphabetic character                            A   the same, stored in upper case
//     n   an alphanumeric character                          N   the same, stored in upper case
//     X   any character but line feed                        !   the same, stored in upper case
//     *   any character; only as the last of the picture, and then input goes on behind it without limit and test
//
// A picture holds at least one mask character. Alphabetic, alphanumeric and upper case are those of the system's code
// page. Position n of a picture belongs to byte n of the masked text; a double-byte character is not treated as a unit.
// A masked text holds the literals, an unmasked text only what stands at input positions.
//
// No operation keeps state from one call to the next; any thread may call.
#ifndef MORVL15_MASK_H
#define MORVL15_MASK_H

#include <morvl15/base.h>
#include <morvl15/format.h>

MORVL_BEGIN_C

// FMTMaskText: puts a mask on a text. Literals that the text already has in their place are recognised; a character
// that doesn't fit its position is dropped and the next one tried there. Behind the last character one literal of the
// picture follows, if one stands there ("555" under "999-9999" gives "555-"); of an unlimited picture, all that stand
// there do.
//   text    in:  the text; null gives 0
//   out     out: room for the picture's length (without "^") + 1 bytes; for an unlimited picture the text's length +
//                the number of literals + 1. May be the text's own buffer. Null gives 0
//   picture in:  a valid mask picture, else 0
// Result: 1; 0 for a null argument, an invalid picture and no memory, and then out is as it was.
MORVL_API int32_t MORVL_CALL FMTMaskText(const char* text, char* out, const char* picture);

// FMTUnmaskInput: takes a mask off a text and checks that the text fits. The text may be shorter than the picture. At
// an input position a blank always passes; other characters are tested for "9", "n" and "N" only. Literals must stand
// in the text as in the picture.
//   block   in:  Input, the masked text; Picture; Output, room for the length of Input + 1 bytes, may be Input's own
//                buffer
// Result: 1, and Output holds the unmasked text. 0 with Output as it was: a null block, a null among the three, an empty
// picture, a text longer than a limited picture. 0 with an empty Output: the text doesn't fit.
MORVL_API int32_t MORVL_CALL FMTUnmaskInput(FMTCntlBlock* block);

// FMTIsValidMaskFormat: whether a picture is valid: at least one mask character, and no "*" but at its end.
//   picture in:  the picture; a "^" counts as a literal; null gives 0
// Result: 1 or 0.
MORVL_API int32_t MORVL_CALL FMTIsValidMaskFormat(const char* picture);

// FMTCntMaskChars, FMTCntNonMaskChars: the number of mask characters ("*" included) and of literals of a picture, a "^"
// prefix not counted; 0 for null.
MORVL_API int32_t MORVL_CALL FMTCntMaskChars(const char* picture);
MORVL_API int32_t MORVL_CALL FMTCntNonMaskChars(const char* picture);

// FMTIsPicNoUnmaskOnGets: 1 if the picture's first character is "^"; 0 otherwise and for null.
MORVL_API int32_t MORVL_CALL FMTIsPicNoUnmaskOnGets(const char* picture);

// FMTIsPicUnlimited: 1 if the picture's last character is "*"; 0 otherwise and for null.
MORVL_API int32_t MORVL_CALL FMTIsPicUnlimited(const char* picture);

// ---- validation while a person types ----------------------------------------------------------------------------

// The application's own message to a control that brings it a text to show; its LParam is the text.
#define FMT_MASK_SHOW_TEXT 1062

// Bits of FMTCntlBlock.Flags that FMTValidateInput reads.
#define FMT_MASK_REAPPLY 0x0100u  // texts set as a whole (set text, replace selection, paste) are masked again
#define FMT_MASK_NOTIFY 0x0200u   // ... and reported to the parent, the control being marked as modified

// FMTValidateInput: keeps a single-line edit control in the shape of a mask picture. The application hooks the
// control's message handling, and for every message fills the block and calls this entry before the control sees the
// message. The entry does its work on the control from outside; what it passes on to the control runs through the hook
// once more, and that nested call answers 0 at once.
//   block   in:  Window, the control; Message, WParam (16 bits each) and LParam, the message; Picture, a mask picture
//                that is set on each call; Flags bits 8 and 9, above
//           out: Result, the answer to the message, where the result is 1
// Result: 1 when the message is handled: the application answers it with Result and doesn't pass it on. 0 when it
// isn't: the application passes it on to the control; Result is untouched. 0 for a null block or Picture.
//
// Handled are WM_CHAR (a tab never reaches the control, a backspace with LParam 0 acts as Delete), WM_KEYDOWN of End,
// Home, Left, Right and Delete, and WM_CLEAR; with bit 8 WM_SETTEXT, EM_REPLACESEL and WM_PASTE; with both bits
// FMT_MASK_SHOW_TEXT, whose text the control gets with blanks at the positions that it leaves open. Blanks at the end of
// a text that is masked again are cut off. WM_CUT is left to the application.
//
// A character goes to the next input position, the literals before it being written first; typing inside a text that
// isn't full pushes the rest to the right across the literals, and deleting closes it up. A character that doesn't fit
// gives a beep and is gone. Left, Right and Home put the caret on an input position, as far as the text reaches, and End
// behind the text; a position behind the picture counts as an input position. With Shift, Home and End select from the
// start of the selection to the edge. Where there is no memory, a key is refused, a deletion does nothing, a whole text
// stays as it came, and FMT_MASK_SHOW_TEXT isn't handled. Threads: each thread may serve the controls that it owns;
// while a call runs, calls on the same thread answer 0.
MORVL_API int32_t MORVL_CALL FMTValidateInput(FMTCntlBlock* block);

MORVL_END_C

#endif
