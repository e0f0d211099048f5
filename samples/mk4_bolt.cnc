Thumb screw M10 x 1.5, 30 mm under the head, head dia 17 x 8
Material: aluminium bar dia 18, 55 mm out of the chuck, face sawn (up to 0.8 mm proud)
Tools: T1 side tool right; T2 grooving and parting tool 2 mm, set with its right corner; T3 threading tool 60 deg
Zero point: spindle axis, end of the thread. Start point: dia 40, Z +10
Spindle: 1800 rpm for turning, 300 rpm for thread and parting (the program stops for it)
%
    N` G`   X `    Z `  F`  H 
    00 92  4000   1000          Start point: dia 40, 10 mm off the face
    01M06    00     00T 01      T1 side tool swings in
    02M03                       Spindle on, 1800 rpm
    03 00  1900    100          Up to the bar, 1 mm off the face
    04 88 -  20     00  60  50  @  (2x)Facing Cycle
    05 00  1840    100          0.2 mm off the bar
    06 84  1700 - 4020  80  70  @  (1x)Longitudinal Cycle
    07 00  1740    100          Next: shank with 0.3 mm left on
    08 84  1040 - 2980  80  70  @  (5x)Longitudinal Cycle
    09 00   740     20          Before the chamfer of the tip
    10 01   980 -  100  40      Chamfer 1 x 45 deg
    11 01   980 - 3000  50      Thread outside, 0.2 mm under size
    12 01  1560 - 3000  40      Face under the head
    13 01  1700 - 3070  40      Break the edge of the head
    14 00  1900 - 3070          Off the bar
    15 00  4000   1000          Retreat for the tool change
    16M06 -  40    120T 02      T2 grooving tool
    17 00  4000 - 2600          Along to the end of the thread
    18 00  1100 - 2600          In to 0.6 mm off the shank
    19 86   760 - 3000  20 200  @  (2x)Grooving Cycle
    20 00  4000 - 2600          Out
    21 00  4000   1000          Retreat for the tool change
    22M06    15 -   90T 03      T3 threading tool
    23M05                       Spindle off
    24M00                       Set 300 rpm (at most 320 for pitch 1.5), Start
    25M03                       Spindle on, 300 rpm
    26 00  1000    300          3 mm run-in: two pitches
    27 78   796 - 2750K150  20  @  (6x)Threading Cycle
    28 00   796    300          Core diameter for the spring cut
    29 33       - 2750K150      Spring cut, same start as the cycle
    30 00  1200 - 2750          Out of the thread, in the undercut
    31 00  1200    300          Back in front
    32M00                       Try the nut. Start: part off
    33 00  4000   1000          Retreat for the tool change
    34M06 -  40    120T 02      T2 as parting tool
    35 00  4000 - 3800          Along to the top of the head
    36 00  1800 - 3800          In to 0.5 mm off the head
    37 01  1000 - 3800  20      Cut in
    38 00  1800 - 3800          Out to clear the chips
    39 00  1040 - 3800          Down into the cut again
    40 01   200 - 3800  15      Leave a peg of 2 mm, break it off by hand
    41 00  4000 - 3800          Out of the cut
    42 00  4000   1000          Back to the start point
    43M05                       Spindle off
    44M30                       End of program
   M
