Cylinder of a model engine: dia 30 x 46, 14 slots 1.5 mm wide and 4.5 mm deep, pitch 3 mm
Material: aluminium bar dia 32, 60 mm out of the chuck, tailstock not needed, face turned clean
Tools: T1 side tool right, mounted before the start; T2 grooving tool 1.5 mm, set with its right corner
Zero point: spindle axis, top face of the cylinder. Start point: dia 44, Z +10
Spindle 1200 rpm, 600 rpm for the slots, switched by hand.
This control knows no subroutines, so the seven lines of a slot stand here 14 times, in incremental mode.
Lines 100 and up show 00 and up in the file: the control has two places for the number.
%
   N00 G92 X 4400 Z  1000 F    Start point: dia 44, 10 mm off the face
   N01 G20 X      Z       F    Spindle on by hand, 1200 rpm, then Start
   N02 G00 X 3240 Z   100 F    0.2 mm off the bar, 1 mm off the face
   N03 G84 X 3060 Z- 4800 F 80 Outside with 0.3 mm left on
   N04 G00 X 2860 Z    20 F    Before the chamfer
   N05 G01 X 3000 Z-   50 F 50 Chamfer 0.5 x 45 deg
   N06 G01 X 3000 Z- 4800 F 50 Outside on size
   N07 G01 X 3240 Z- 4800 F 80 Off the bar
   N08 G00 X 4400 Z  1000 F    Retreat for the tool change
   N09 G20 X      Z       F    Spindle to 600 rpm by hand, then Start
   N10 G26 X-  40 Z   120 F 02 T2 grooving tool in
   N11 G00 X 4400 Z-  200 F    Along to the first slot
   N12 G00 X 3040 Z-  200 F    0.2 mm off the outside
   N13 G91 X      Z       F    Incremental for the slots
   N14 G01 X- 170 Z    00 F 20 Slot 1 of 14, first bite
   N15 G00 X   50 Z    00 F    Lift to break the chip
   N16 G01 X- 200 Z    00 F 20 Second bite
   N17 G00 X   50 Z    00 F    Lift
   N18 G01 X- 200 Z    00 F 20 Down to 4.5 mm depth
   N19 G00 X  470 Z    00 F    Out of the slot
   N20 G00 X   00 Z-  300 F    On to the next slot, 3 mm
   N21 G01 X- 170 Z    00 F 20 Slot 2 of 14, first bite
   N22 G00 X   50 Z    00 F    Lift to break the chip
   N23 G01 X- 200 Z    00 F 20 Second bite
   N24 G00 X   50 Z    00 F    Lift
   N25 G01 X- 200 Z    00 F 20 Down to 4.5 mm depth
   N26 G00 X  470 Z    00 F    Out of the slot
   N27 G00 X   00 Z-  300 F    On to the next slot, 3 mm
   N28 G01 X- 170 Z    00 F 20 Slot 3 of 14, first bite
   N29 G00 X   50 Z    00 F    Lift to break the chip
   N30 G01 X- 200 Z    00 F 20 Second bite
   N31 G00 X   50 Z    00 F    Lift
   N32 G01 X- 200 Z    00 F 20 Down to 4.5 mm depth
   N33 G00 X  470 Z    00 F    Out of the slot
   N34 G00 X   00 Z-  300 F    On to the next slot, 3 mm
   N35 G01 X- 170 Z    00 F 20 Slot 4 of 14, first bite
   N36 G00 X   50 Z    00 F    Lift to break the chip
   N37 G01 X- 200 Z    00 F 20 Second bite
   N38 G00 X   50 Z    00 F    Lift
   N39 G01 X- 200 Z    00 F 20 Down to 4.5 mm depth
   N40 G00 X  470 Z    00 F    Out of the slot
   N41 G00 X   00 Z-  300 F    On to the next slot, 3 mm
   N42 G01 X- 170 Z    00 F 20 Slot 5 of 14, first bite
   N43 G00 X   50 Z    00 F    Lift to break the chip
   N44 G01 X- 200 Z    00 F 20 Second bite
   N45 G00 X   50 Z    00 F    Lift
   N46 G01 X- 200 Z    00 F 20 Down to 4.5 mm depth
   N47 G00 X  470 Z    00 F    Out of the slot
   N48 G00 X   00 Z-  300 F    On to the next slot, 3 mm
   N49 G01 X- 170 Z    00 F 20 Slot 6 of 14, first bite
   N50 G00 X   50 Z    00 F    Lift to break the chip
   N51 G01 X- 200 Z    00 F 20 Second bite
   N52 G00 X   50 Z    00 F    Lift
   N53 G01 X- 200 Z    00 F 20 Down to 4.5 mm depth
   N54 G00 X  470 Z    00 F    Out of the slot
   N55 G00 X   00 Z-  300 F    On to the next slot, 3 mm
   N56 G01 X- 170 Z    00 F 20 Slot 7 of 14, first bite
   N57 G00 X   50 Z    00 F    Lift to break the chip
   N58 G01 X- 200 Z    00 F 20 Second bite
   N59 G00 X   50 Z    00 F    Lift
   N60 G01 X- 200 Z    00 F 20 Down to 4.5 mm depth
   N61 G00 X  470 Z    00 F    Out of the slot
   N62 G00 X   00 Z-  300 F    On to the next slot, 3 mm
   N63 G01 X- 170 Z    00 F 20 Slot 8 of 14, first bite
   N64 G00 X   50 Z    00 F    Lift to break the chip
   N65 G01 X- 200 Z    00 F 20 Second bite
   N66 G00 X   50 Z    00 F    Lift
   N67 G01 X- 200 Z    00 F 20 Down to 4.5 mm depth
   N68 G00 X  470 Z    00 F    Out of the slot
   N69 G00 X   00 Z-  300 F    On to the next slot, 3 mm
   N70 G01 X- 170 Z    00 F 20 Slot 9 of 14, first bite
   N71 G00 X   50 Z    00 F    Lift to break the chip
   N72 G01 X- 200 Z    00 F 20 Second bite
   N73 G00 X   50 Z    00 F    Lift
   N74 G01 X- 200 Z    00 F 20 Down to 4.5 mm depth
   N75 G00 X  470 Z    00 F    Out of the slot
   N76 G00 X   00 Z-  300 F    On to the next slot, 3 mm
   N77 G01 X- 170 Z    00 F 20 Slot 10 of 14, first bite
   N78 G00 X   50 Z    00 F    Lift to break the chip
   N79 G01 X- 200 Z    00 F 20 Second bite
   N80 G00 X   50 Z    00 F    Lift
   N81 G01 X- 200 Z    00 F 20 Down to 4.5 mm depth
   N82 G00 X  470 Z    00 F    Out of the slot
   N83 G00 X   00 Z-  300 F    On to the next slot, 3 mm
   N84 G01 X- 170 Z    00 F 20 Slot 11 of 14, first bite
   N85 G00 X   50 Z    00 F    Lift to break the chip
   N86 G01 X- 200 Z    00 F 20 Second bite
   N87 G00 X   50 Z    00 F    Lift
   N88 G01 X- 200 Z    00 F 20 Down to 4.5 mm depth
   N89 G00 X  470 Z    00 F    Out of the slot
   N90 G00 X   00 Z-  300 F    On to the next slot, 3 mm
   N91 G01 X- 170 Z    00 F 20 Slot 12 of 14, first bite
   N92 G00 X   50 Z    00 F    Lift to break the chip
   N93 G01 X- 200 Z    00 F 20 Second bite
   N94 G00 X   50 Z    00 F    Lift
   N95 G01 X- 200 Z    00 F 20 Down to 4.5 mm depth
   N96 G00 X  470 Z    00 F    Out of the slot
   N97 G00 X   00 Z-  300 F    On to the next slot, 3 mm
   N98 G01 X- 170 Z    00 F 20 Slot 13 of 14, first bite
   N99 G00 X   50 Z    00 F    Lift to break the chip
   N00 G01 X- 200 Z    00 F 20 Second bite
   N01 G00 X   50 Z    00 F    Lift
   N02 G01 X- 200 Z    00 F 20 Down to 4.5 mm depth
   N03 G00 X  470 Z    00 F    Out of the slot
   N04 G00 X   00 Z-  300 F    On to the next slot, 3 mm
   N05 G01 X- 170 Z    00 F 20 Slot 14 of 14, first bite
   N06 G00 X   50 Z    00 F    Lift to break the chip
   N07 G01 X- 200 Z    00 F 20 Second bite
   N08 G00 X   50 Z    00 F    Lift
   N09 G01 X- 200 Z    00 F 20 Down to 4.5 mm depth
   N10 G00 X  470 Z    00 F    Out of the slot
   N11 G90 X      Z       F    Absolute again
   N12 G00 X 4400 Z- 4100 F    Retreat
   N13 G00 X 4400 Z  1000 F    Back to the start point
   N14 G23 X   50 Z    00 F 00 Pulse on output X62 rings the bell
   N15 G20 X      Z       F    Spindle off by hand; then bore, saw off
   N16 G22 X      Z       F    End of program
   M
