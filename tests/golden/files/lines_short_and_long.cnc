%
    N` G`   X `    Z `  F`  H 
%

    00 91                      ccccccccccccccccccccccccccccccccccccccccccccccccccX
 
    00 91                      Ä a 	
ab
    03M30
