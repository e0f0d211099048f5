FAULT TO FIND: pocket in a tool block, the tool change of the program was left out as the cutter was in already.
The check reports "!Must be preceded by M06" on the G72 line, and goes on.
Why: the control works out the path in the pocket from the tool radius, and that radius stands in the D of M06.
Without M06 it does not know the tool: the two far walls would be cut a tool radius too far.
To learn: M06 comes first even if there is but one tool. Right here is a line before the spindle goes on:
M06 D400 S1500 Z00 T01.
Part: pocket 40 x 30, 3 mm deep, first corner at X 10 Y 10. Material: aluminium block 60 x 50 x 15
Set-up: vertical spindle, end mill 8 mm. Zero point: front left corner, top face
Start point: X -30, Y -30, Z +30
%
    N` G`  X  `  Y `   Z ` F  
    00 92- 3000-3000  3000     Start: left and front, 30 mm up
    01M03                      Spindle on, 1500 rpm
    02 00  3000 2500  3000     Over the middle of the pocket
    03 00  3000 2500   100     1 mm above the block
    04 00  1400 1400   100     To its corner, a tool radius inside the walls
    05 72  5000 4000-  150  70 Pocket, first 1.5 mm
    06 72  5000 4000-  300  70 Pocket, down to 3 mm
    07 00  1400 1400  3000     Up
    08 00- 3000-3000  3000     Back to the start point
    09M05                      Spindle off
    10M30                      End of program
   MI
