Bearing bush Ø22, bore 8 H7, 20 mm long
Material: brass bar Ø25, 45 mm out of the chuck, face sawn (up to 0.8 mm proud)
Tools: T1 side tool right; T2 centre drill A2.5; T3 drill 5 mm; T4 drill 7.8 mm; T5 reamer 8 H7;
T6 parting tool 2 mm, set with its right corner
Zero point: spindle axis, right face of the bush. Start point: Ø50, Z +50 (room for the drills)
Spindle 1200 rpm, 300 rpm for the reamer (the program stops for it). The coolant pump hangs on output X62.
M98 holds the play of our slides: X 0.03 mm, Z 0.02 mm. Measure your own.
%
    N` G`   X `    Z `  F`  H 
    00 92  5000   5000          Start point: Ø50, 50 mm off the face
    01M98    03     02          Play of the slides: X 0.03 mm, Z 0.02 mm
    02M06    00     00T 01      T1 side tool swings in
    03M03                       Spindle on, 1200 rpm
    04M08                       Coolant pump on
    05 00  2600    100          1 mm off the face, beside the bar
    06 88 -  20     00  60  50  @  (2x)Facing Cycle
    07 00  2540    100          0.2 mm off the bar
    08 84  2260 - 2240  80  50  @  (3x)Longitudinal Cycle
    09 00  2020     20          Before the chamfer
    10 01  2200 -   70  40      Chamfer 0.7 x 45°
    11 01  2200 - 2240  40      Outside on size, on past the parting place
    12 01  2540 - 2240  80      Off the bar
    13 00  5000   5000          Retreat for the drills
    14M06    00 -  820T 02      T2 centre drill
    15 00    00   5000          On the axis, still well clear
    16 00    00    200          2 mm off the face
    17 81       -  350  40      Centre the bore, 3.5 mm deep
    18 00    00   5000          Straight back out
    19M06    00 - 2150T 03      T3 drill 5 mm
    20 00    00    200          2 mm off the face
    21 83       - 2500  60      @  (5x)Drilling Cycle with Withdrawal
    22 00    00   5000          Straight back out
    23M06    00 - 2460T 04      T4 drill 7.8 mm
    24 00    00    200          2 mm off the face
    25 73       - 2500  50      @  (15x)Drilling Cycle with Chip Breakage
    26 00    00   5000          Straight back out
    27M06    00 - 2300T 05      T5 reamer 8 H7
    28M05                       Spindle off
    29M00                       Set 300 rpm, oil the reamer, Start
    30M03                       Spindle on, 300 rpm
    31 00    00    200          2 mm off the face
    32 85       - 2450  50      Ream through; comes out with feed as well
    33 00    00   5000          Straight back out
    34 00  5000   5000          Off the axis before the tool changes
    35M06 -  70    150T 06      T6 parting tool
    36 00  5000 - 2000          Along to the left face of the bush
    37 00  2400 - 2000          In to 1 mm off the bush
    38 01  1600 - 2000  20      Cut in
    39 00  2400 - 2000          Out to clear the chips
    40 00  1640 - 2000          Down into the cut again
    41 01   740 - 2000  15      Through into the bore: the bush falls
    42 00  5000 - 2000          Out of the cut
    43M09                       Coolant pump off
    44 00  5000   5000          Back to the start point
    45M05                       Spindle off
    46M30                       End of program
   M
