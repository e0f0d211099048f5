FAULT TO FIND: slot for a key, approached in a straight line through the air and left in the same way.
The check reports "!No 3-d allowed" on the lines N03 and N06, and goes on.
Why: the control can move two axes together, but not three. In both lines X, Y and Z change at once.
To learn: divide such a move. Towards the work first X and Y, up where nothing is in the way, then Z down;
away from it first Z up, then X and Y. That is the safe way as well: look what the line in the air would have
hit.
Part: key slot 8 wide, 25 long, 4 mm deep. Material: aluminium block 60 x 40 x 20
Set-up: vertical spindle. Tool: T1 end mill 8 mm. Zero point: front left corner, top face
Start point: X -30, Y -30, Z +30
%
    N` G`  X  `  Y `   Z ` F  
    00 92- 3000-3000  3000     Start: left and front, 30 mm up
    01M06D  400S1500    00T 01 T1 end mill 8 mm, radius 4 mm
    02M03                      Spindle on, 1500 rpm
    03 00  2000 2000   100     Straight to 1 mm above the slot
    04 01  2000 2000-  400  30 In, 4 mm
    05 01  3700 2000-  400  50 Slot to its full length
    06 00- 3000-3000  3000     Straight back to the start point
    07M05                      Spindle off
    08M30                      End of program
   MI
