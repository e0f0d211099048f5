Taper plug, inch: .400 to .700 dia over 1.000 length, collar .700 x .250
Material: aluminium bar .750 dia, 1.800 out of the chuck, face sawn (up to .030 proud)
Tools: T1 side tool right; T2 parting tool .080, set with its right corner
Zero point: spindle axis, small end. Start point: dia 1.500, Z +1.000
Spindle 1500 rpm. Taper .300 on dia per inch, half angle 8.5 deg.
Roughing with feed per minute (G94), the last cut along the taper with feed per turn (G95).
%
    N` G`   X `    Z `  F`  H 
    00 92  1500   1000          Start: dia 1.500, 1.000 off the face
    01M06    00     00T 01      T1 side tool swings in
    02 94                       Feed per minute for roughing
    03M03                       Spindle on, 1500 rpm
    04 00   790     40          .040 off the face, beside the bar
    05 88 -  10     00  25  20  @  (2x)Facing Cycle
    06 00   770     40          .010 off the bar
    07 84   710 - 1350  30  30  @  (1x)Longitudinal Cycle
    08 00   730     40          Next: first step of the taper
    09 84   620 -  650  30  30  @  (2x)Longitudinal Cycle
    10 00   640     40          Next: second step
    11 84   520 -  320  30  30  @  (2x)Longitudinal Cycle
    12 00   445     50          Taper line .060 over size
    13 01   730 -  900  30      First cut along the taper
    14 00   730     50          Back in front of the face
    15 00   405     50          Taper line .020 over size
    16 01   720 - 1000  30      Second cut along the taper
    17 00   770 - 1000          Off the bar
    18 00   770     50          Back in front of the face
    19 95                       Feed per turn for the finish
    20 00   385     50          Taper line on size
    21 01   700 - 1000  20      Finish: .400 at the face, .700 at the end
    22 01   700 - 1350  20      Collar on size, on past the parting place
    23 94                       Feed per minute again
    24 01   770 - 1350  40      Off the bar
    25 00  1500   1000          Retreat for the tool change
    26M06 -  20     45T 02      T2 parting tool
    27 00  1500 - 1250          Along to the end of the collar
    28 00   740 - 1250          In to .020 off the collar
    29 91                       Incremental: cut in three bites
    30 01 - 130     00  10      First bite, .130
    31 00    20     00          Lift .020 to break the chip
    32 01 - 120     00  10      Second bite
    33 00    20     00          Lift
    34 01 - 120     00  08      Leave a peg of .080, break it off by hand
    35 90                       Absolute again
    36 04    50                 Half a second to cut clean
    37 00  1500 - 1250          Out of the cut
    38 00  1500   1000          Back to the start point
    39M05                       Spindle off
    40M30                       End of program
   "
