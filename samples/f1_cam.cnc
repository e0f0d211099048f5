Cam for a toy: base circle R15, nose R6 at 14 mm from the axis, 6 mm thick, pin hole 3 mm in the nose
Material: aluminium disc Ø45 x 6, bored 10 mm on the lathe, on a mandrel with spacer and nut, both under 22 mm
Set-up: vertical spindle. Tools: T1 end mill 10 mm; T2 drill 3 mm
Zero point: axis of the bore, top of the disc; the nose points to +X. Start point: X +35, Y 0, Z +30
All points are those of the cutter's axis, 5 mm outside the cam: base R20, nose R11, flanks touching both
at 50°. One round is a subroutine in incremental mode, milled in three layers.
%
    N` G`  X  `  Y `   Z ` F  
    00 92  3500   00  3000     Start point: right of the nose, 30 mm up
    01M06D  500S1200    00T 01 T1 end mill 10 mm, radius 5 mm
    02M03                      Spindle on, 1200 rpm
    03 00  3500   00   100     1 mm above the disc, beside it
    04 25                 L 21 First layer to 2 mm
    05 90                      Absolute again, the round left G91
    06 00  3500   00-  100     Beside the disc, 2 mm lower
    07 25                 L 21 Second layer to 4 mm
    08 90                      Absolute again
    09 00  3500   00-  350     Beside the disc, 2.5 mm lower
    10 25                 L 21 Third layer, 0.5 mm through
    11 90                      Absolute again
    12 00  3500   00  3000     Retreat for the tool change
    13M06D  150S1800-  280T 02 T2 drill 3 mm
    14 00  1400   00  3000     Over the middle of the nose
    15 00  1400   00   100     1 mm above the cam
    16 83           -  720  40 @  (2x)Drilling Cycle with Withdrawal
    17 00  1400   00  3000     Up
    18 00  3500   00  3000     Back to the start point
    19M05                      Spindle off
    20M30                      End of program
    21 91                      Round the cam, against the clock
    22 00    00   00-  300     Down beside the disc
    23 01- 1000   00    00  60 Up to the tip of the nose
    24 03-  393  843    00  60 Nose, from 0 to 50°
    25M99I 1100J  00K   00     cmdRADIUS centre of the nose, 11 mm to the left
    26 01-  821  689    00  60 Upper flank
    27 03- 1286  468    00  60 Base circle, from 50 to 90°
    28M99I 1286J1532K   00     cmdRADIUS centre is the zero point
    29 03- 2000-2000    00  60 Base circle, 90 to 180°, a full quadrant
    30 03  2000-2000    00  60 Base circle, 180 to 270°
    31 03  1286  468    00  60 Base circle, from 270 to 310°
    32M99I   00J2000K   00     cmdRADIUS centre is the zero point
    33 01   821  689    00  60 Lower flank
    34 03   393  843    00  60 Nose, from 310° back to the tip
    35M99I  707J 843K   00     cmdRADIUS centre of the nose
    36 01  1000   00    00 100 Off the cam
    37 00    00   00   300     Up again
    38M17                      Back to the main program
   MI
