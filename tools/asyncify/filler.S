# Functions that nobody calls, whose numbers begin the table of functions: so the numbers of all others are unlike what else
# a program reckons with. asyncify.mjs takes them out again.
.macro kvt_empty
	.section	.text.kvt_empty\@,"",@
	.type	kvt_empty\@,@function
kvt_empty\@:
	.functype	kvt_empty\@ () -> ()
	end_function
	.section	.data.kvt_filler,"",@
	.int32	kvt_empty\@
.endm
	.section	.data.kvt_filler,"",@
	.globl	kvt_filler
kvt_filler:
	.rept	KVT_FILLED
	kvt_empty
	.endr
	.size	kvt_filler, KVT_FILLED * 4
