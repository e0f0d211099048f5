Guide block 40 x 80 x 15: slot 10 x 44, 4 deep, step 5 x 3 along the left edge, two screw holes 6 mm
with counterbores 10 mm, two core holes 5 mm for M6
Material: aluminium bar 40 x 80 x 15, standing upright on the angle plate, strips of 5 mm behind it
Set-up: horizontal spindle. X across (short slide), Y up, Z along the spindle, minus into the work
Tools: T1 end mill 10 mm; T2 drill 6 mm; T3 drill 5 mm
Zero point: middle of the front face. Start point: X -40, Y -50, Z +40
The zero point lies in the middle because the column of Y has but four places: from -99.99 to 99.99 mm.
%
    N` G`  X  `  Y `   Z ` F  
    00 92- 4000-5000  4000     Start: left and below, 40 mm in front
    01M06D  500S1200    00T 01 T1 end mill 10 mm, radius 5 mm
    02M03                      Spindle on, 1200 rpm
    03 00- 2000-5000  4000     Below the left edge
    04 00- 2000-5000-  150     Depth of the step, first layer 1.5 mm
    05 25                 L 45 Mill the step upwards
    06 90                      Absolute again, the step left G91
    07 00- 2000-5000-  300     Depth of the step, 3 mm
    08 25                 L 45 Mill the step upwards
    09 90                      Absolute again
    10 00- 2000-5000   200     2 mm in front of the face
    11 00   300-1700   200     Lower end of the slot
    12 01   300-1700-  200  30 In, 2 mm
    13 01   300 1700-  200  60 Slot, upwards
    14 01   300 1700-  400  30 In, 4 mm
    15 01   300-1700-  400  60 Slot, downwards
    16 00   300-1700   200     2 mm in front of the face
    17 00   300-3000   200     Lower counterbore
    18 82           -  500  40 Counterbore 5 mm deep, dwell for a flat floor
    19 00   300 3000   200     Upper counterbore
    20 82           -  500  40 Counterbore 5 mm deep
    21 00   300 3000  4000     Retreat for the tool change
    22 00- 4000-5000  4000     Clear of the work
    23M06D  300S1500-  640T 02 T2 drill 6 mm
    24 00   300 3000  4000     Upper screw hole
    25 00   300 3000-  400     In the counterbore, 1 mm off its floor
    26 83           - 1750  50 @  (3x)Drilling Cycle with Withdrawal
    27 00   300 3000   200     Out in front of the face
    28 00   300-3000   200     Lower screw hole
    29 00   300-3000-  400     In the counterbore, 1 mm off its floor
    30 83           - 1750  50 @  (3x)Drilling Cycle with Withdrawal
    31 00   300-3000  4000     Retreat for the tool change
    32 00- 4000-5000  4000     Clear of the work
    33M06D  250S1600-  590T 03 T3 drill 5 mm
    34 00  1400-1500  4000     Lower core hole
    35 00  1400-1500   100     1 mm in front of the face
    36 73           - 1200  50 @  (8x)Drilling Cycle with Chip Breakage
    37 91                      Incremental for the distance of the holes
    38 00    00 3000    00     Upper core hole, 30 mm up
    39 73           - 1300  50 @  (8x)Drilling Cycle with Chip Breakage
    40 90                      Absolute again
    41 00  1400 1500  4000     Out
    42 00- 4000-5000  4000     Back to the start point
    43M05                      Spindle off
    44M30                      End of program
    45 91                      Step: starts 10 mm below the block
    46 45                      Tool radius on: run out past the upper edge
    47 01    00 9000    00  80 Step, bottom to top
    48 40                      Compensation off
    49 00    00   00   500     Off the face
    50 45                      Tool radius on, same way back
    51 00    00-9000    00     Back below the block
    52 40                      Compensation off
    53 00    00   00-  500     Depth again
    54M17                      Back to the main program
   M-
