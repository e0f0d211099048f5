FAULT TO FIND: file handle with a crowned grip, the crown turned as one arc.
The check reports "!1 quadrant max" on the M99 line.
Why: the control can turn an arc only within one quadrant, seen from its centre. The crown rises to its
highest point and falls again, so it passes the limit between two quadrants.
To learn: split an arc at each point where it is highest or furthest along. Right here are two arcs:
G03 X1800 Z-1500 with M99 I3816 K1200, then G03 X1432 Z-2700 with M99 I4000 K00.
Part: grip dia 18, crown R40, 24 mm long. Material: aluminium bar, crown rough-turned with 0.3 mm left on
Tool: T1 copying tool right. Zero point: spindle axis, right face. Start point: dia 40, Z +10
%
    N` G`   X `    Z `  F`  H 
    00 92  4000   1000          Start point: dia 40, 10 mm off the face
    01M06    00     00T 01      T1 copying tool swings in
    02M03                       Spindle on, 1800 rpm
    03 00  1900 -  300          Beside the bar, at the front of the grip
    04 01  1432 -  300  40      In to the start of the crown
    05 03  1432 - 2700  50      Crown in one go: over the highest point!
    06M99 I3816 K 1200          Centre 12 mm on, 38.16 mm further in
    07 01  1900 - 2700  80      Out
    08 00  4000 - 2700          Retreat
    09 00  4000   1000          Back to the start point
    10M05                       Spindle off
    11M30                       End of program
   M
