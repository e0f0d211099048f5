Housing lid 70 x 70 x 10: rim 64 x 64 x 3, pocket 32 x 32 x 4, six holes 4.5 mm on a circle of 54 mm
Material: aluminium block 70 x 70 x 10, all faces clean, in the vice on parallels, 6 mm above the jaws
Set-up: vertical spindle. Tools: T1 end mill 10 mm; T2 end mill 8 mm; T3 spotting drill 6 mm; T4 drill 4.5 mm
Zero point: middle of the block, top face. Start point: X -50, Y -50, Z +30
Rim and pocket walls are programmed with the size of the part; G46 to G48 put the tool radius of M06 on or off.
Hole circle: one subroutine for spotting and drilling. Each hole goes 13 mm down from where the tool stands,
so the height at the call decides the depth: Z 11.5 gives 1.5 mm, Z 1 gives 12 mm, which is right through.
%
    N` G`  X  `  Y `   Z ` F  
    00 92- 5000-5000  3000     Start: left and front of the block, 30 mm up
    01M06D  500S1200    00T 01 T1 end mill 10 mm, radius 5 mm
    02M03                      Spindle on, 1200 rpm
    03 00- 5000-5000   100     1 mm above the block, still beside it
    04 25                 L 49 Rim, first layer to 1.5 mm
    05 90                      Absolute again, the rim left G91
    06 00- 5000-5000-   50     Beside the block, 1.5 mm lower
    07 25                 L 49 Rim, second layer to 3 mm
    08 90                      Absolute again
    09 00- 5000-5000  3000     Retreat for the tool change
    10M06D  400S1500-  320T 02 T2 end mill 8 mm, radius 4 mm
    11 00    00   00  3000     Over the middle of the pocket
    12 00    00   00   100     1 mm above the block
    13 00- 1180-1180   100     To the corner, last move in X and Y before G72
    14 72  1580 1580-  200  70 Pocket, first 2 mm, 0.2 mm left on the walls
    15 72  1580 1580-  400  70 Pocket, down to 4 mm
    16 00    00   00   100     Over the middle of the pocket
    17 01    00   00-  400  60 Down to the floor
    18 91                      Incremental for the finishing cut
    19 46                      Tool radius off: from the middle to a wall
    20 01- 1600   00    00  50 To the left wall
    21 01    00 1600    00  50 Up to the rear corner
    22 48                      Tool radius off twice: from wall to wall
    23 01  3200   00    00  50 Rear wall
    24 01    00-3200    00  50 Right wall
    25 01- 3200   00    00  50 Front wall
    26 46                      Tool radius off once
    27 01    00 1600    00  50 Left wall, back to its middle
    28 01  1600   00    00  80 Back to the middle of the pocket
    29 40                      Compensation off
    30 90                      Absolute again
    31 00    00   00  3000     Up
    32 00- 5000-5000  3000     Retreat for the tool change
    33M06D  300S1500   210T 03 T3 spotting drill 6 mm
    34 00    00   00  3000     Middle of the hole circle
    35 00    00   00  1150     Height for spotting 1.5 mm deep
    36 25                 L 63 Spot all six holes
    37 90                      Absolute again
    38 00    00   00  3000     Up
    39 00- 5000-5000  3000     Retreat for the tool change
    40M06D  225S1500   480T 04 T4 drill 4.5 mm
    41 00    00   00  3000     Middle of the hole circle
    42 00    00   00   100     Height for drilling right through
    43 25                 L 63 Drill all six holes
    44 90                      Absolute again
    45 00    00   00  3000     Up
    46 00- 5000-5000  3000     Back to the start point
    47M05                      Spindle off
    48M30                      End of program
    49 91                      Rim: starts 18 mm off its front left corner
    50 00    00   00-  250     Down beside the block
    51 46                      Tool radius off: stop short of the corner
    52 01  1800 1800    00 100 Up to the corner
    53 47                      Tool radius on twice: round the outside
    54 01  6400   00    00  80 Front side
    55 01    00 6400    00  80 Right side
    56 01- 6400   00    00  80 Rear side
    57 01    00-6400    00  80 Left side
    58 46                      Tool radius off, same as on the way in
    59 00- 1800-1800    00     Away from the corner
    60 40                      Compensation off
    61 00    00   00   250     Up again
    62M17                      Back to the main program
    63 91                      Hole circle: starts over its middle
    64 00  2700   00    00     Hole 1, at 0 deg, 27 mm out
    65 83           - 1300  50 @  (3x)Drilling Cycle with Withdrawal
    66 00- 1350 2338    00     Hole 2, at 60 deg
    67 83           - 1300  50 @  (3x)Drilling Cycle with Withdrawal
    68 00- 2700   00    00     Hole 3, at 120 deg
    69 83           - 1300  50 @  (3x)Drilling Cycle with Withdrawal
    70 00- 1350-2338    00     Hole 4, at 180 deg
    71 83           - 1300  50 @  (3x)Drilling Cycle with Withdrawal
    72 00  1350-2338    00     Hole 5, at 240 deg
    73 83           - 1300  50 @  (3x)Drilling Cycle with Withdrawal
    74 00  2700   00    00     Hole 6, at 300 deg
    75 83           - 1300  50 @  (3x)Drilling Cycle with Withdrawal
    76 00- 1350 2338    00     Back to the middle
    77M17                      Back to the main program
   MI
