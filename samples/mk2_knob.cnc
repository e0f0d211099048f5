Drawer knob: head dia 22 with a rounded edge R4, neck dia 14, foot dia 18 with a fillet R2
Material: aluminium bar dia 24, 45 mm out of the chuck, face turned clean
Tools: T1 copying tool right, 93 deg lead, mounted before the start; T2 parting tool 2 mm, right corner
Zero point: spindle axis, front face of the head. Start point: dia 32, Z +10
Spindle 1500 rpm, switched by hand. The arcs are full quadrants; the control works out their Z by itself.
%
   N00 G92 X 3200 Z  1000 F    Start point: dia 32, 10 mm off the face
   N01 G20 X      Z       F    Spindle on by hand, 1500 rpm, then Start
   N02 G00 X 2440 Z   100 F    0.2 mm off the bar, 1 mm off the face
   N03 G84 X 2260 Z- 2420 F 80 Head with 0.3 mm left on, past the parting
   N04 G00 X 2280 Z   100 F    Front corner
   N05 G84 X 2110 Z-  140 F 80 First step of the corner
   N06 G84 X 1960 Z-   58 F 80 Second step
   N07 G00 X 2280 Z-  790 F    Behind the head: top of the slope
   N08 G01 X 2060 Z-  900 F 60 Neck, first cut: down the slope
   N09 G01 X 2060 Z- 2200 F 60 Along the neck and the foot
   N10 G01 X 2280 Z- 2200 F 80 Out
   N11 G00 X 2280 Z-  790 F    Back to the top of the slope
   N12 G01 X 1860 Z- 1000 F 60 Second cut: down the slope
   N13 G01 X 1860 Z- 2200 F 60 Along the neck and the foot
   N14 G01 X 2280 Z- 2200 F 80 Out
   N15 G00 X 2280 Z-  790 F    Back to the top of the slope
   N16 G01 X 1660 Z- 1100 F 60 Third cut: down the slope
   N17 G01 X 1660 Z- 1940 F 60 Along the neck as far as the foot
   N18 G01 X 2280 Z- 1940 F 80 Out
   N19 G00 X 2280 Z-  790 F    Back to the top of the slope
   N20 G01 X 1460 Z- 1200 F 60 Fourth cut: down the slope
   N21 G01 X 1460 Z- 1780 F 60 Along the neck, 0.3 mm left on
   N22 G01 X 2280 Z- 1780 F 80 Out
   N23 G21 X      Z       F    Now the finishing cut along the whole knob
   N24 G00 X 2280 Z   100 F    In front of the face
   N25 G00 X 1400 Z   100 F    Where the rounding begins
   N26 G01 X 1400 Z    00 F 40 Up to the face
   N27 G03 X 2200 Z-  400 F 40 Round the edge R4
   N28 G01 X 2200 Z-  800 F 40 Rim of the head
   N29 G01 X 1400 Z- 1200 F 40 Slope behind the head, 45 deg
   N30 G01 X 1400 Z- 1800 F 40 Neck on size
   N31 G02 X 1800 Z- 2000 F 40 Fillet R2 to the foot
   N32 G01 X 1800 Z- 2200 F 40 Foot on size
   N33 G01 X 2440 Z- 2200 F 60 Out past the bar
   N34 G00 X 3200 Z- 2200 F    Off the bar
   N35 G00 X 3200 Z  1000 F    Back to the start point
   N36 G26 X-  60 Z   140 F 02 T2 parting tool in
   N37 G00 X 3200 Z- 2200 F    Along to the end of the foot
   N38 G00 X 2460 Z- 2200 F    In to 1 mm off
   N39 G01 X 1200 Z- 2200 F 20 Cut in
   N40 G00 X 2460 Z- 2200 F    Out to clear the chips
   N41 G00 X 1240 Z- 2200 F    Down into the cut again
   N42 G01 X  200 Z- 2200 F 15 Leave a peg of 2 mm, break it off by hand
   N43 G00 X 3200 Z- 2200 F    Out of the cut
   N44 G00 X 3200 Z  1000 F    Back to the start point
   N45 G20 X      Z       F    Spindle off by hand
   N46 G22 X      Z       F    End of program
   M
