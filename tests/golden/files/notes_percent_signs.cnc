  50% off 

second €ÿ  
%
    N` G`   X `    Z `  F`  H 
    00M30                       end
   M
