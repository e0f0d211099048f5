FAULT TO FIND: spacer dia 20, the last cycle takes the bar from dia 21 to dia 20 with H60.
The check reports "!Division-of-cut error" on the second G84.
Why: X is a diameter, but H counts on the radius, for that is how far the slide moves. From dia 21 to dia 20
the slide has 0.50 mm to go; a cut of 0.60 mm is more than there is.
To learn: H must not be greater than half the difference of the diameters. Right here is H50 or less,
or H00 for one cut.
Part: spacer dia 20 x 15. Material: aluminium bar dia 25, 35 mm out of the chuck, face turned
Tool: T1 side tool right. Zero point: spindle axis, right face. Start point: dia 40, Z +10
%
    N` G`   X `    Z `  F`  H 
    00 92  4000   1000          Start point: dia 40, 10 mm off the face
    01M06    00     00T 01      T1 side tool swings in
    02M03                       Spindle on, 1500 rpm
    03 00  2540    100          0.2 mm off the bar, 1 mm off the face
    04 84  2080 - 1720  80  60  @  (4x)Longitudinal Cycle
    05 00  2100    100          Next: down to size
    06 84  2000 - 1720  50  60  Last 0.5 mm
    07 00  1860     20          Before the chamfer
    08 01  2000 -   50  40      Chamfer 0.5 x 45 deg
    09 00  4000   1000          Retreat
    10M05                       Spindle off
    11M30                       End of program
   M
