Pen tray, inch: block 3.000 x 1.500 x .750 with a trough .200 deep, both ends rising on an arc
Material: aluminium block 3.000 x 1.500 x .750, in the vice, .400 above the jaws
Set-up: vertical spindle. Tool: T1 ball end mill .250, all heights are those of its lowest point
Zero point: front left corner, top face. Start point: X -1.000, Y -.500, Z +1.000
One pass goes along X and dips in the plane XZ: down an arc R .600, along the floor, up the other arc,
back, and .050 on in Y. Five passes are a subroutine that calls the one of the single pass.
11 passes per layer: the first layer cuts .100 deep, the second .200.
%
    N` G`  X  `  Y `   Z ` F  
    00 92- 1000- 500  1000     Start: left and front, 1.000 up
    01M06D  125S1800    00T 01 T1 ball end mill .250, radius .125
    02M03                      Spindle on, 1800 rpm
    03 00   400  500  1000     Where the first pass begins
    04 00   400  500   100     .100 up: first layer cuts .100 deep
    05 25                 L 19 Passes 1 to 5
    06 25                 L 19 Passes 6 to 10
    07 25                 L 25 Pass 11
    08 90                      Absolute again, the passes left G91
    09 00   400  500   100     Back to the first pass
    10 00   400  500    00     On the face: second layer cuts .200 deep
    11 25                 L 19 Passes 1 to 5
    12 25                 L 19 Passes 6 to 10
    13 25                 L 25 Pass 11
    14 90                      Absolute again
    15 00   400 1050  1000     Up
    16 00- 1000- 500  1000     Back to the start point
    17M05                      Spindle off
    18M30                      End of program
    19 25                 L 25 Pass 1 of five
    20 25                 L 25 Pass 2 of five
    21 25                 L 25 Pass 3 of five
    22 25                 L 25 Pass 4 of five
    23 25                 L 25 Pass 5 of five
    24M17                      Back to the caller
    25 91                      Single pass, plane XZ
    26 03   447   00-  200  50 Down into the trough
    27M99I  447J  00K  400     Centre .447 on and .400 above
    28 01  1306   00    00  50 Floor
    29 03   447   00   200  50 Up at the other end
    30M99I   00J  00K  600     Centre .600 straight above
    31 00    00   00   100     Clear of the face
    32 00- 2200   00    00     Back to the left
    33 00    00   00-  100     Down to where it began
    34 00    00   50    00     On in Y for the next pass
    35M17                      Back to the caller
   "I
