Plumb bob body, inch: cone .060 to .700 dia over 1.200, body .700 x .400
Material: brass bar .750 dia, 2.100 out of the chuck, face turned clean
Tools: T1 side tool right, mounted before the start; T2 parting tool .080, set with its right corner
Zero point: spindle axis, face of the tip. Start point: dia 1.250, Z +.400
Spindle 1500 rpm, switched by hand. Each step of the cone leaves .010 on the radius;
the last cut along the cone runs with feed per turn (G95).
%
   N00 G92 X 1250 Z   400 F    Start: dia 1.250, .400 off the face
   N01 G94 X      Z       F    Feed per minute for roughing
   N02 G20 X      Z       F    Spindle on by hand, 1500 rpm, then Start
   N03 G00 X  770 Z    40 F    .010 off the bar, .040 off the face
   N04 G84 X  710 Z- 1700 F 30 Body with .010 left on, past the parting
   N05 G00 X  730 Z    40 F    Now the steps of the cone
   N06 G84 X  650 Z- 1050 F 30 Step 1 of 10
   N07 G00 X  670 Z    40 F    Over to the next step
   N08 G84 X  590 Z-  940 F 30 Step 2 of 10
   N09 G00 X  610 Z    40 F    Over to the next step
   N10 G84 X  530 Z-  830 F 30 Step 3 of 10
   N11 G00 X  550 Z    40 F    Over to the next step
   N12 G84 X  470 Z-  715 F 30 Step 4 of 10
   N13 G00 X  490 Z    40 F    Over to the next step
   N14 G84 X  410 Z-  600 F 30 Step 5 of 10
   N15 G00 X  430 Z    40 F    Over to the next step
   N16 G84 X  350 Z-  490 F 30 Step 6 of 10
   N17 G00 X  370 Z    40 F    Over to the next step
   N18 G84 X  290 Z-  380 F 30 Step 7 of 10
   N19 G00 X  310 Z    40 F    Over to the next step
   N20 G84 X  230 Z-  270 F 30 Step 8 of 10
   N21 G00 X  250 Z    40 F    Over to the next step
   N22 G84 X  170 Z-  155 F 30 Step 9 of 10
   N23 G00 X  190 Z    40 F    Over to the next step
   N24 G84 X  110 Z-   45 F 30 Step 10 of 10
   N25 G95 X      Z       F    Feed per turn for the finish
   N26 G00 X   44 Z    30 F    On the line of the cone, .030 in front
   N27 G01 X  700 Z- 1200 F 20 Cone on size, half angle 14.9 deg
   N28 G01 X  700 Z- 1700 F 20 Body on size, on past the parting place
   N29 G94 X      Z       F    Feed per minute again
   N30 G01 X  770 Z- 1700 F 40 Off the bar
   N31 G00 X 1250 Z- 1700 F    Well off the bar
   N32 G00 X 1250 Z   400 F    Back to the start point
   N33 G26 X-  20 Z    45 F 02 T2 parting tool in
   N34 G00 X 1250 Z- 1600 F    Along to the end of the body
   N35 G00 X  740 Z- 1600 F    In to .020 off the body
   N36 G91 X      Z       F    Incremental: part off in three bites
   N37 G01 X- 130 Z    00 F 10 First bite, .130
   N38 G00 X   20 Z    00 F    Lift .020 to break the chip
   N39 G01 X- 120 Z    00 F 10 Second bite
   N40 G00 X   20 Z    00 F    Lift
   N41 G01 X- 120 Z    00 F 08 Leave a peg of .080, break it off by hand
   N42 G90 X      Z       F    Absolute again
   N43 G00 X 1250 Z- 1600 F    Out of the cut
   N44 G00 X 1250 Z   400 F    Back to the start point
   N45 G20 X      Z       F    Spindle off by hand
   N46 G22 X      Z       F    End of program
   "
