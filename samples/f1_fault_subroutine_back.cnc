FAULT TO FIND: drilling plate, the subroutine for a row of holes stands at the beginning of the program.
The check reports "!Invalid SUB" on the first G25.
Why: on this control a call must lead forward, at least two lines on. A call that leads back could come upon
itself again and never end.
To learn: the main program comes first and ends with M30, the subroutines stand behind it, each with its M17.
The jump over the subroutine, G27, is then not needed.
Part: plate with two rows of three holes 5 mm, 20 mm apart. Material: aluminium plate 80 x 50 x 8
Set-up: vertical spindle. Tool: T1 drill 5 mm. Zero point: front left corner, top face
Start point: X -20, Y -20, Z +30
%
    N` G`  X  `  Y `   Z ` F  
    00 92- 2000-2000  3000     Start: left and front, 30 mm up
    01 27                 L 09 Jump over the subroutine
    02 91                      Row of three holes
    03 83           - 1100  50 First hole
    04 00  2000   00    00     20 mm on
    05 83           - 1100  50 Second hole
    06 00  2000   00    00     20 mm on
    07 83           - 1100  50 Third hole
    08M17                      Back to the main program
    09M06D  250S1600    00T 01 T1 drill 5 mm
    10M03                      Spindle on, 1600 rpm
    11 00  2000 1500  3000     Front row
    12 00  2000 1500   100     1 mm above the plate
    13 25                 L 02 Front row of holes
    14 90                      Absolute again
    15 00  2000 3500   100     Rear row
    16 25                 L 02 Rear row of holes
    17 90                      Absolute again
    18 00  6000 3500  3000     Up
    19 00- 2000-2000  3000     Back to the start point
    20M05                      Spindle off
    21M30                      End of program
   MI
